#include "tests/architecture/Sources.h"

#include <gtest/gtest.h>

#include <set>

// The shape of the sources, as CONTRIBUTING.md asks for it.

using namespace palomet;
using test::filesBelow;
using test::sourceFolder;
using test::fs::path;

namespace {

const std::vector<std::string> folders{"app",          "audio", "base",     "command",   "doctor",
                                       "localization", "model", "platform", "shortcuts", "ui"};

/// Tests of the whole program, or of several folders at once, have no folder to mirror.
const std::set<std::string> ofTheWhole{"architecture", "palomet", "soak", "support", "ears"};
const std::set<path> ofTheWindow{"ui/desktop", "ui/gallery", "ui/pictures", "ui/support"};

void expectToMirror(const std::string &folder, const std::string &ending) {
    for (const auto &file : filesBelow(folder, {ending})) {
        const auto mirrored = file.parent_path().lexically_relative(folder);
        EXPECT_TRUE(ofTheWhole.contains(mirrored.begin()->string()) || ofTheWindow.contains(mirrored) ||
                    exists(sourceFolder / mirrored))
            << file << " mirrors no folder";
    }
}

} // namespace

TEST(Shape, TestsAndBenchesStandInTheFolderOfWhatTheyTry) {
    expectToMirror("tests", "Test.cpp");
    expectToMirror("bench", "Bench.cpp");
}

TEST(Shape, EveryPathThatADocumentNamesIsThere) {
    static const std::regex pattern(R"(`([a-z]+/[A-Za-z0-9_./-]+)`)");
    const auto isThere = [](const std::string &named) {
        for (const auto *ending : {"", ".h", ".cpp", ".qml", ".ts"}) {
            if (exists(sourceFolder / (named + ending)))
                return true;
        }
        return false;
    };
    for (const auto &place : {".", "docs"}) {
        for (const auto &entry : test::fs::directory_iterator(sourceFolder / place)) {
            if (entry.path().extension() != ".md")
                continue;
            std::ifstream stream(entry.path());
            const std::string text(std::istreambuf_iterator<char>(stream), {});
            for (auto found = std::sregex_iterator(text.begin(), text.end(), pattern); found != std::sregex_iterator();
                 ++found) {
                const auto named = (*found)[1].str();
                const auto folder = named.substr(0, named.find('/'));
                EXPECT_TRUE(folder == "build" || !exists(sourceFolder / folder) || isThere(named))
                    << entry.path().filename() << " names " << named;
            }
        }
    }
}

TEST(Shape, NoSourceIsLongerThanThreeHundredLines) {
    for (const auto &folder : folders) {
        for (const auto &file : filesBelow(folder, {".h", ".cpp", ".qml"})) {
            std::ifstream stream(sourceFolder / file);
            const auto lines = std::count(std::istreambuf_iterator<char>(stream), {}, '\n');
            EXPECT_LE(lines, 300) << file;
        }
    }
}
