#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// A folder of its own for the files that a test writes; removed with everything in it at the end.
class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarvex-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    /// Writes a file, making the folders on its way, and returns its full path.
    std::string write(const std::string& name, std::string_view content) const {
        const auto file = path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file.string();
    }

    std::string operator/(const std::string& name) const { return (path / name).string(); }

private:
    std::filesystem::path path;
};
