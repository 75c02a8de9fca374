#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What an ASE file declares about its geometry object, true or not.
struct AseCounts {
    int vertices = 0;
    int faces = 0;
    int texture_vertices = 0;
};

/// The text of one ASE file, read as a stream of tokens that end at white space. Its block
/// structure is not parsed: a loader looks for the tokens that it knows and drops the line of any
/// other. As a geometry object states its material after its faces, a loader reads the text in
/// several passes; the file itself is read once. Objects, materials and sub-materials count from 1.
class AseFile {
public:
    /// Null when the file cannot be read.
    static std::unique_ptr<AseFile> open(const std::string& filename);

    explicit AseFile(std::string content);

    /// The next token; false at the end of the file, where `token` stays as it is.
    bool getToken(std::string_view& token);
    /// Drops the rest of the line, but never more than 99 characters of it.
    void dropLine();

    /// Reads the next numbers and stops in front of the first text that is none; the values left
    /// over stay as they are. Infinity, NaN and what does not fit
    /// the type do not count as numbers.
    template <typename... Numbers>
    bool getNumbers(Numbers&... values) {
        return (getNumber(values) && ...);
    }
    /// Reads the corners of a face, ":  A:  0 B:  1 C:  2", in the same manner.
    bool getCorners(int& a, int& b, int& c);

    /// Goes behind the next token `name`, or to the end.
    void moveToNext(std::string_view name);
    /// Goes behind the material id of the face that was just read; false, and back to where it was,
    /// when the face has none.
    bool moveToFaceMaterial();
    /// Each goes behind the i-th such token of the file; false, and to the end, when there are
    /// fewer.
    bool moveToObject(int i);
    /// The file then seems to end behind the next token of the same name, so that no material is
    /// read further than to the next one, however many there are.
    bool moveToMaterial(int i) { return moveTo(materials, 0, i); }
    /// The same, counted from the present position.
    bool moveToSubMaterial(int i) { return moveTo(sub_materials, pos, i); }

    int getNumObjects();
    /// What the file declares, but never more than it holds.
    int getNumMaterials();
    /// What a material declares; 0 for a plain one.
    int getNumSubMaterials(int index);
    /// Overwrites the counts that the first object declares.
    void getCounts(AseCounts& counts);

    /// Calls `read` behind every token `tag` of the first object.
    template <typename Read>
    void getData(std::string_view tag, Read read) {
        moveToObject(1);
        std::string_view token;
        while (getToken(token) && token != geometry_object) {
            if (token == tag) {
                read();
            } else {
                dropLine();
            }
        }
    }

    /// How many tokens `name` the file holds, but no more than `declared`: what is safe to reserve.
    int getNumAtMost(int declared, std::string_view name) const;

    static constexpr std::string_view geometry_object = "*GEOMOBJECT";
    static constexpr std::string_view material = "*MATERIAL";
    static constexpr std::string_view sub_material = "*SUBMATERIAL";

private:
    using Positions = std::vector<std::size_t>;

    bool getNumber(int& value);
    bool getNumber(float& value);
    /// Reads a number as far as it goes and steps behind it; false without moving when there is
    /// none.
    template <typename Number>
    bool parse(Number& value);
    bool expect(std::string_view literal);
    void skipWhite();

    /// The next token `name` from a position on.
    std::size_t find(std::string_view name, std::size_t from) const;
    /// Behind each token `name`.
    Positions findAll(std::string_view name);
    bool moveTo(const Positions& positions, std::size_t from, int i);
    void rewind();

    std::string text;
    std::size_t pos = 0;
    std::size_t end;  // where tokens end for the present
    Positions objects;
    Positions materials;
    Positions sub_materials;
};
