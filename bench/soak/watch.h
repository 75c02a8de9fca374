#pragma once

#include <cstddef>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

class Galaxy;

/// What a process holds at one moment.
struct Holdings {
    std::size_t heap = 0;      ///< bytes in use
    std::size_t resident = 0;  ///< bytes of memory that are there
    long files = 0;            ///< open descriptors
    long names = 0;            ///< display lists and textures
};

/// Looks for what must never happen, however long the game is played. Every check throws Exception
/// when it has found something.
class Watch {
public:
    /// Reads standard error from now on, in place of the terminal.
    Watch();
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Whether all that flies is somewhere, faces somewhere, and is in a state that can be told.
    void checkObjects(const Galaxy& galaxy);
    /// Takes note of how much there is of everything that comes and goes.
    void checkNumbers(const Galaxy& galaxy);
    /// Whether just so many channels play.
    void checkChannels(int expected) const;
    /// Compares what is held as a level begins with what was held when it began before. While
    /// `warm`, that is learnt.
    void checkHoldings(std::size_t level, bool warm);
    /// Reads what has come on standard error since.
    void checkErrorLines();

    static Holdings takeStock();

    /// The most that was seen.
    std::size_t getMostObjects() const { return most_objects; }
    int getMostChannels() const { return most_channels; }
    /// The latest, and the most that was learnt, by level.
    const std::map<std::size_t, Holdings>& getHoldings() const { return latest; }
    const std::map<std::size_t, Holdings>& getAllowance() const { return allowance; }
    /// How often each line came that was expected.
    const std::map<std::string, unsigned long>& getErrorLines() const { return error_lines; }

private:
    std::size_t most_objects = 0;
    int most_channels = 0;
    std::map<std::size_t, Holdings> latest, allowance;
    std::map<std::string, unsigned long> error_lines;
    int terminal;       ///< where standard error went before
    FILE* error_file;   ///< where it goes now
    std::string begun;  ///< the line that has not ended yet
};
