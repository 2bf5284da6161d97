#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

// The arrows between the folders, as ARCHITECTURE.md draws them. A folder may include itself and what is listed here.

namespace {

namespace fs = std::filesystem;

const std::map<std::string, std::set<std::string>> allowed{
    {"base", {}},
    {"localization", {"base"}},
    {"model", {"base", "localization"}},
    {"audio", {"base", "localization"}},
    {"shortcuts", {"base", "localization"}},
    {"ui", {"base", "localization", "model", "shortcuts"}},
    {"app", {"base", "localization", "model", "shortcuts", "audio", "ui", "platform"}},
};

const fs::path source{PALOMET_SOURCE_DIR};

/// The library that a path relative to the source belongs to: "platform/x11/Grab.h" is platform/x11, "ui/kit/Zen.qml"
/// is ui.
std::string folderOf(const fs::path &relative) {
    auto part = relative.begin();
    const auto first = part->string();
    if (++part == relative.end())
        return first;
    if (first == "platform")
        return first + "/" + part->string();
    return first;
}

struct Include {
    fs::path file;
    std::string target;
    bool isOurs;
};

std::vector<Include> includesBelow(const std::string &folder) {
    static const std::regex pattern(R"rx(^\s*#\s*include\s*([<"])([^>"]+)[>"])rx");
    std::vector<Include> found;
    for (const auto &entry : fs::recursive_directory_iterator(source / folder)) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);) {
            std::smatch match;
            if (std::regex_search(line, match, pattern))
                found.push_back({fs::relative(entry.path(), source), match[2], match[1] == "\""});
        }
    }
    return found;
}

} // namespace

TEST(Arrows, PointOneWayOnly) {
    for (const auto &[top, unused] : allowed) {
        if (!fs::exists(source / top))
            continue;
        for (const auto &include : includesBelow(top)) {
            if (!include.isOurs || !fs::exists(source / include.target))
                continue;
            const auto from = folderOf(include.file);
            const auto to = folderOf(include.target);
            if (from == to)
                continue;
            const auto &targets = allowed.at(from.starts_with("platform/") ? "app" : from);
            const auto toName = to.starts_with("platform/") ? "platform" : to;
            EXPECT_TRUE(targets.contains(toName)) << include.file << " includes " << include.target;
        }
    }
}

TEST(Arrows, APlatformFolderIncludesOnlyThePortThatItImplements) {
    for (const auto &include : includesBelow("platform")) {
        if (!include.isOurs || !fs::exists(source / include.target))
            continue;
        const auto from = folderOf(include.file);
        const auto to = folderOf(include.target);
        EXPECT_TRUE(from == to || to == "base" || !to.starts_with("platform/"))
            << include.file << " includes " << include.target;
        if (from == to || include.target.ends_with("Test.h"))
            continue;
        // A port is a header without a source of its own.
        auto implementation = source / include.target;
        implementation.replace_extension(".cpp");
        EXPECT_FALSE(fs::exists(implementation))
            << include.file << " includes " << include.target << ", which is no port";
    }
}

TEST(Arrows, OnlyPlatformFoldersIncludeTheHeadersOfASystem) {
    static const std::regex system(
        R"(^(linux/|sys/|unistd\.h|fcntl\.h|signal\.h|poll\.h|spawn\.h|pulse/|xcb/|X11/|xkbcommon/)"
        R"(|wayland|dbus/|QDBus|QtDBus|qpa/))");
    for (const auto &[folder, unused] : allowed) {
        for (const auto &include : includesBelow(folder))
            EXPECT_FALSE(std::regex_search(include.target, system)) << include.file << " includes " << include.target;
    }
}
