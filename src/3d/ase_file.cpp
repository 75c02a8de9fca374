#include "3d/ase_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>

namespace {

constexpr std::size_t longest_dropped_line = 99;

bool isWhite(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

}  // namespace

std::unique_ptr<AseFile> AseFile::open(const std::string& filename) {
    std::error_code ignored;
    if (std::filesystem::is_directory(filename, ignored)) return nullptr;
    std::ifstream file(filename, std::ios::binary);
    if (!file) return nullptr;
    std::ostringstream content;
    content << file.rdbuf();
    return std::make_unique<AseFile>(std::move(content).str());
}

AseFile::AseFile(std::string content)
    : text(std::move(content)),
      end(text.size()),
      objects(findAll(geometry_object)),
      materials(findAll(material)),
      sub_materials(findAll(sub_material)) {}

bool AseFile::getToken(std::string_view& token) {
    skipWhite();
    const std::size_t start = pos;
    while (pos < end && !isWhite(text[pos])) ++pos;
    if (pos == start) return false;
    token = std::string_view(text).substr(start, pos - start);
    return true;
}

void AseFile::dropLine() {
    const std::string_view line = std::string_view(text).substr(pos, longest_dropped_line);
    const std::size_t feed = line.find('\n');
    pos += feed == std::string_view::npos ? line.size() : feed + 1;
}

bool AseFile::getCorners(int& a, int& b, int& c) {
    return expect(":") && expect("A:") && getNumber(a) && expect("B:") && getNumber(b) &&
           expect("C:") && getNumber(c);
}

void AseFile::moveToNext(std::string_view name) {
    const std::size_t start = find(name, pos);
    pos = start == std::string::npos ? text.size() : start + name.size();
}

bool AseFile::moveToFaceMaterial() {
    const std::size_t face = pos;
    std::string_view token;
    while (getToken(token) && token != "*MESH_FACE" && token != geometry_object) {
        if (token == "*MESH_MTLID") return true;
    }
    pos = face;
    return false;
}

bool AseFile::moveToObject(int i) {
    const bool there = moveTo(objects, 0, i);
    end = text.size();
    return there;
}

int AseFile::getNumObjects() {
    rewind();
    int num = 0;
    std::string_view token;
    while (getToken(token)) {
        if (token == geometry_object) {
            ++num;
        } else {
            dropLine();
        }
    }
    return num;
}

int AseFile::getNumMaterials() {
    rewind();
    moveToNext("*MATERIAL_COUNT");
    int declared = 0;
    getNumbers(declared);
    return std::clamp(declared, 0, static_cast<int>(materials.size()));
}

int AseFile::getNumSubMaterials(int index) {
    moveToMaterial(index);
    std::string_view token;
    while (getToken(token) && token != material && token != geometry_object) {
        if (token == "*NUMSUBMTLS") {
            int declared = 0;
            getNumbers(declared);
            return std::max(declared, 0);
        }
        dropLine();
    }
    return 0;
}

void AseFile::getCounts(AseCounts& counts) {
    struct Entry {
        std::string_view token;
        int AseCounts::*count;
    };
    static constexpr Entry entries[] = {
        {"*MESH_NUMVERTEX", &AseCounts::vertices},
        {"*MESH_NUMFACES", &AseCounts::faces},
        {"*MESH_NUMTVERTEX", &AseCounts::texture_vertices},
    };
    moveToObject(1);
    std::string_view token;
    while (getToken(token) && token != geometry_object) {
        const auto* known = std::find_if(std::begin(entries), std::end(entries),
                                         [&](const Entry& e) { return e.token == token; });
        if (known == std::end(entries)) {
            dropLine();
        } else {
            getNumbers(counts.*(known->count));
        }
    }
}

int AseFile::getNumAtMost(int declared, std::string_view name) const {
    int num = 0;
    for (std::size_t at = find(name, 0); num < declared && at != std::string::npos; ++num) {
        at = find(name, at + name.size());
    }
    return num;
}

bool AseFile::getNumber(int& value) {
    return parse(value);
}

bool AseFile::getNumber(float& value) {
    const std::size_t start = pos;
    double number = 0;
    if (!parse(number)) return false;
    if (!(std::abs(number) <= std::numeric_limits<float>::max())) {
        pos = start;
        return false;
    }
    value = static_cast<float>(number);
    return true;
}

template <typename Number>
bool AseFile::parse(Number& value) {
    skipWhite();
    std::size_t start = pos;
    const char next = start + 1 < text.size() ? text[start + 1] : '\0';
    if (start < text.size() && text[start] == '+' && next != '-')
        ++start;  // not known to from_chars
    const char* text_end = text.data() + text.size();
    const auto result = std::from_chars(text.data() + start, text_end, value);
    if (result.ec != std::errc()) return false;
    pos = static_cast<std::size_t>(result.ptr - text.data());
    return true;
}

bool AseFile::expect(std::string_view literal) {
    skipWhite();
    if (std::string_view(text).substr(pos, literal.size()) != literal) return false;
    pos += literal.size();
    return true;
}

void AseFile::skipWhite() {
    while (pos < text.size() && isWhite(text[pos])) ++pos;
}

std::size_t AseFile::find(std::string_view name, std::size_t from) const {
    for (std::size_t at = text.find(name, from); at != std::string::npos;
         at = text.find(name, at + 1)) {
        const std::size_t behind = at + name.size();
        const bool starts = at == from || isWhite(text[at - 1]);
        const bool ends = behind == text.size() || isWhite(text[behind]);
        if (starts && ends) return at;
    }
    return std::string::npos;
}

AseFile::Positions AseFile::findAll(std::string_view name) {
    Positions found;
    pos = 0;
    for (std::size_t at = find(name, pos); at != std::string::npos; at = find(name, pos)) {
        pos = at + name.size();
        found.push_back(pos);
        dropLine();
    }
    pos = 0;
    return found;
}

bool AseFile::moveTo(const Positions& positions, std::size_t from, int i) {
    const auto first = std::lower_bound(positions.begin(), positions.end(), from);
    const auto num = positions.end() - first;
    pos = i <= num ? first[i - 1] : text.size();
    end = i < num ? first[i] : text.size();
    return i <= num;
}

void AseFile::rewind() {
    pos = 0;
    end = text.size();
}
