#include "platform/xdg/SoundSettings.h"

#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// The panel for who may use the microphone, where the settings of GNOME still have one of its own.
QString gnomePanel() {
    const auto panel = u"gnome-microphone-panel.desktop"_s;
    return QStandardPaths::locate(QStandardPaths::ApplicationsLocation, panel).isEmpty() ? u"sound"_s : u"microphone"_s;
}

} // namespace

std::vector<ProgramCall> microphoneSettings(const QString &desktop) {
    const auto names = desktop.toUpper().split(u':');
    const auto isAny = [&](std::initializer_list<QLatin1StringView> known) {
        return std::any_of(known.begin(), known.end(), [&](auto name) { return names.contains(name); });
    };
    std::vector<ProgramCall> calls;
    if (isAny({"GNOME"_L1, "UNITY"_L1, "PANTHEON"_L1, "BUDGIE"_L1}))
        calls.push_back({u"gnome-control-center"_s, gnomePanel()});
    if (isAny({"X-CINNAMON"_L1}))
        calls.push_back({u"cinnamon-settings"_s, u"sound"_s});
    if (isAny({"MATE"_L1}))
        calls.push_back({u"mate-volume-control"_s, u"--page=input"_s});
    if (isAny({"KDE"_L1}))
        calls.push_back({u"systemsettings"_s, u"kcm_pulseaudio"_s});
    // The page of the devices that record.
    calls.push_back({u"pavucontrol"_s, u"-t"_s, u"4"_s});
    calls.push_back({u"pavucontrol-qt"_s, u"-t"_s, u"4"_s});
    return calls;
}

bool openFirst(const std::vector<ProgramCall> &calls) {
    return std::any_of(calls.begin(), calls.end(), [](const auto &call) {
        return !QStandardPaths::findExecutable(call.constFirst()).isEmpty() &&
               QProcess::startDetached(call.constFirst(), call.sliced(1));
    });
}

} // namespace palomet
