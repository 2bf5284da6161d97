#pragma once

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

// The sources of the repository, as the tests of its shape read them.
namespace palomet::test {

namespace fs = std::filesystem;

inline const fs::path sourceFolder{PALOMET_SOURCE_DIR};

/// Every file below a folder that ends in one of these ways, relative to the sources.
inline std::vector<fs::path> filesBelow(const fs::path &folder, const std::vector<std::string> &endings) {
    std::vector<fs::path> found;
    for (const auto &entry : fs::recursive_directory_iterator(sourceFolder / folder)) {
        for (const auto &ending : endings) {
            if (entry.is_regular_file() && entry.path().filename().string().ends_with(ending))
                found.push_back(fs::relative(entry.path(), sourceFolder));
        }
    }
    return found;
}

/// One line of a source that includes another, or a header of a system.
struct Include {
    fs::path file;
    std::string target;
    bool isOurs;
};

inline std::vector<Include> includesBelow(const fs::path &folder) {
    static const std::regex pattern(R"rx(^\s*#\s*include\s*([<"])([^>"]+)[>"])rx");
    std::vector<Include> found;
    for (const auto &file : filesBelow(folder, {".h", ".cpp"})) {
        std::ifstream stream(sourceFolder / file);
        for (std::string line; std::getline(stream, line);) {
            std::smatch match;
            if (std::regex_search(line, match, pattern))
                found.push_back({file, match[2], match[1] == "\"" && fs::exists(sourceFolder / match[2].str())});
        }
    }
    return found;
}

} // namespace palomet::test
