#include "tests/architecture/Sources.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

// The arrows between the folders, as ARCHITECTURE.md draws them.

using namespace palomet;
using test::includesBelow;

namespace {

using Folders = std::set<std::string>;

/// Each folder, and those that it may include besides itself.
const std::map<std::string, Folders> arrows{
    {"base", {}},
    {"localization", {"base"}},
    {"model", {"base", "localization"}},
    {"audio", {"base"}},
    {"shortcuts", {"base", "localization"}},
    {"command", {"base"}},
    {"doctor", {"base", "command", "model", "audio"}},
    {"ui", {"base", "localization", "model", "shortcuts"}},
    {"app", {"base", "localization", "model", "audio", "shortcuts", "command", "doctor", "ui", "platform"}},
};

/// The rooms of a large folder, and those of its rooms that each may include besides itself. "" is the folder itself.
const std::map<std::string, std::map<std::string, Folders>> rooms{
    {"audio",
     {
         {"echo", {}},
         {"capture", {"echo"}},
         {"speech", {}},
         {"", {"capture", "echo", "speech"}},
         {"link", {"", "capture", "speech"}},
     }},
    {"ui",
     {
         {"kit", {}},
         {"strip", {"", "kit"}},
         {"screens", {"", "kit", "strip"}},
         {"shell", {"", "kit", "screens", "strip"}},
         {"preview", {"", "screens", "shell"}},
         {"", {"kit"}},
     }},
};

/// Headers of the folder itself that every room of it may include.
const std::set<std::string> sharedByRooms{"audio/SoundServer.h"};

/// The ports that each system implements, with the types that they speak of. Nothing else of the program is known
/// there.
const std::map<std::string, std::set<std::string>> ports{
    {"dbus",
     {"app/DesktopLook.h", "app/Notifier.h", "base/TrayHost.h", "command/RemoteClient.h", "command/RemoteService.h",
      "command/RemoteStatusJson.h", "model/MicrophonePermission.h", "shortcuts/HotKeyGrabber.h", "shortcuts/Keys.h",
      "shortcuts/KeyboardLayout.h", "ui/shell/FolderChooser.h"}},
    {"gnome",
     {"shortcuts/DesktopKeys.h", "shortcuts/HotKeyGrabber.h", "shortcuts/KeyboardLayout.h", "shortcuts/Keys.h"}},
    {"linux", {"app/ChildProcess.h", "doctor/PortHolder.h"}},
    {"pulse", {"audio/SoundServer.h"}},
    {"sway", {"ui/shell/WindowManagement.h"}},
    {"wayland",
     {"platform/xkb/XkbKeymap.h", "shortcuts/KeyboardLayout.h", "ui/shell/WindowManagement.h",
      "ui/strip/StripPanel.h"}},
    {"x11",
     {"platform/xkb/XkbKeymap.h", "shortcuts/HotKeyGrabber.h", "shortcuts/Keys.h", "shortcuts/KeyboardLayout.h",
      "ui/shell/WindowManagement.h", "ui/strip/WorkArea.h"}},
    {"xdg", {"command/Autostart.h"}},
    {"xkb", {"shortcuts/Keys.h"}},
};

std::string folderOf(const test::fs::path &path) {
    return path.begin()->string();
}

/// "kit" of "ui/kit/Zen.qml", "" of "ui/Ui.h".
std::string roomOf(const test::fs::path &path) {
    const auto second = std::next(path.begin());
    return std::next(second) == path.end() ? std::string() : second->string();
}

} // namespace

TEST(Arrows, PointOneWayOnly) {
    for (const auto &[folder, targets] : arrows) {
        for (const auto &include : includesBelow(folder)) {
            const auto to = folderOf(include.target);
            EXPECT_TRUE(!include.isOurs || to == folder || targets.contains(to))
                << include.file << " includes " << include.target;
        }
    }
}

TEST(Arrows, PointOneWayOnlyBetweenTheRoomsOfAFolder) {
    for (const auto &[folder, allowed] : rooms) {
        for (const auto &include : includesBelow(folder)) {
            if (!include.isOurs || folderOf(include.target) != folder || sharedByRooms.contains(include.target))
                continue;
            const auto from = roomOf(include.file);
            const auto to = roomOf(include.target);
            EXPECT_TRUE(from == to || allowed.at(from).contains(to)) << include.file << " includes " << include.target;
        }
    }
}

TEST(Arrows, ASystemIsToldOfNothingButThePortsThatItImplements) {
    for (const auto &include : includesBelow("platform")) {
        const auto system = roomOf(include.file);
        const bool isItsOwn = include.target.starts_with("platform/" + system + "/");
        EXPECT_TRUE(!include.isOurs || isItsOwn || folderOf(include.target) == "base" ||
                    ports.at(system).contains(include.target))
            << include.file << " includes " << include.target;
    }
}

TEST(Arrows, OnlyPlatformFoldersIncludeTheHeadersOfASystem) {
    static const std::regex system(
        R"(^(linux/|sys/|unistd\.h|fcntl\.h|signal\.h|poll\.h|spawn\.h|pulse/|xcb/|X11/|gio/|xkbcommon/)"
        R"(|wayland|dbus/|QDBus|QtDBus|qpa/))");
    // The one place that puts the program together knows which bus it speaks on.
    const std::set<std::string> composition{"app/Session.h"};
    for (const auto &[folder, unused] : arrows) {
        for (const auto &include : includesBelow(folder)) {
            EXPECT_TRUE(composition.contains(include.file.string()) || !std::regex_search(include.target, system))
                << include.file << " includes " << include.target;
        }
    }
}
