#include "doctor/Diagnosis.h"

#include "base/BackendPort.h"

#include <algorithm>
#include <cmath>

namespace palomet {

using namespace Qt::StringLiterals;
using Instance = Examination::Instance;

namespace {

constexpr int silence = -120;
/// Below this even a quiet room is not heard.
constexpr int deaf = -90;

Finding works(const QString &subject, const QString &text) {
    return {Finding::Verdict::Works, subject, text};
}

Finding fails(const QString &subject, const QString &text) {
    return {Finding::Verdict::Fails, subject, text};
}

Finding program(const Examination &found) {
    const auto subject = u"Palomet"_s;
    switch (found.instance) {
    case Instance::Absent:
        return works(subject, u"does not run now; \"palomet\" starts it"_s);
    case Instance::Silent:
        return fails(subject, u"runs, but does not answer; end it with \"pkill -x palomet\", and start it again"_s);
    case Instance::Running:
        break;
    }
    if (found.status.state == "offline"_L1)
        return fails(subject, u"runs, but its backend does not; the end of %1 says why"_s.arg(found.log));
    return works(subject, u"runs, and is %1"_s.arg(found.status.isMuted ? u"muted"_s : found.status.state));
}

Finding resources(const Examination &found) {
    const auto subject = u"resources"_s;
    if (!found.resources)
        return fails(subject, u"there is no such folder; install Palomet again, or name it in PALOMET_RESOURCES"_s);
    if (!found.hasTexts)
        return fails(subject, u"there are no texts in %1; install Palomet again"_s.arg(*found.resources));
    return works(subject, *found.resources);
}

Finding engine(const Examination &found) {
    const auto subject = u"engine"_s;
    const auto folder = found.resources.value_or(u"the resource folder"_s);
    if (!found.hasEngine)
        return fails(subject, u"there is none in %1; install palomet-engine"_s.arg(folder));
    if (found.runtimeVersion.isEmpty())
        return fails(subject, u"its runtime, %1/bun, does not run here; install palomet-engine again"_s.arg(folder));
    return works(subject, u"there, with its runtime %1"_s.arg(found.runtimeVersion));
}

Finding hearing(const Examination::Hearing &told) {
    return told.isDeaf ? fails(u"hearing"_s, told.text) : works(u"hearing"_s, told.text);
}

Finding port(const Examination &found) {
    const auto subject = u"port %1"_s.arg(backendPort);
    if (!found.port) {
        return found.instance == Instance::Running
                   ? fails(subject, u"nobody listens, though Palomet runs; the end of %1 says why"_s.arg(found.log))
                   : works(subject, u"free"_s);
    }
    const auto &holder = *found.port;
    if (holder.processId == 0 || found.portOwner == SocketOwner::Others)
        return fails(
            subject,
            u"held by the program of another user, to whom Palomet tells nothing, and who must end it first"_s);
    const auto who = u"%1 (process %2)"_s.arg(holder.lineage.value(0), QString::number(holder.processId));
    if (!holder.lineage.contains("palomet"_L1))
        return fails(subject, u"held by %1, which is not Palomet's; end it, for the backend needs the port"_s.arg(who));
    return works(subject, u"held by Palomet's backend, %1"_s.arg(who));
}

Finding soundServer(const Examination &found) {
    const auto subject = u"sound server"_s;
    return found.isSoundServerThere
               ? works(subject, u"answers, and plays"_s)
               : fails(subject, u"does not answer; start PulseAudio, or PipeWire together with pipewire-pulse"_s);
}

Finding microphone(const Examination &found) {
    const auto subject = u"microphone"_s;
    switch (found.permission) {
    case MicrophoneStatus::Restricted:
        return fails(subject, u"switched off for all applications; switch it on in the desktop's privacy settings"_s);
    case MicrophoneStatus::Denied:
        return fails(subject, u"denied to Palomet; allow it in the desktop's privacy settings"_s);
    case MicrophoneStatus::NotDetermined:
    case MicrophoneStatus::Authorized:
        break;
    }
    if (!found.isSoundServerThere)
        return fails(subject, u"out of reach without a sound server"_s);
    const auto chosen = std::find_if(found.inputs.begin(), found.inputs.end(),
                                     [&](const auto &input) { return input.id == found.defaultInput; });
    if (chosen == found.inputs.end())
        return fails(subject, found.inputs.empty()
                                  ? u"there is none; connect one, the output of a speaker is not taken for one"_s
                                  : u"none is the default; choose one in the desktop's sound settings"_s);
    if (!found.isCaptureOpen)
        return fails(subject, u"%1 cannot be opened; see whether another program holds it alone"_s.arg(chosen->name));
    auto text = u"%1, the default of %2"_s.arg(chosen->name, QString::number(found.inputs.size()));
    if (found.instance == Instance::Running && !found.status.device.isEmpty())
        text += u"; Palomet hears with %1"_s.arg(found.status.device);
    return works(subject, text);
}

Finding tray(const Examination &found) {
    const auto subject = u"tray"_s;
    if (found.tray == TrayHost::Status::Present)
        return works(subject, u"there"_s);
    return fails(subject, u"no panel shows icons; on GNOME install the extension AppIndicator, elsewhere add a tray to "
                          "the panel"_s);
}

Finding keysOfPortal(const Examination &found, const QString &byCommand) {
    const auto subject = u"hot keys"_s;
    const bool isRunning = found.instance == Instance::Running;
    if (!found.doesPortalGrant)
        return fails(subject, u"this desktop's portal grants keys to no program; "_s + byCommand);
    if (!isRunning)
        return works(subject, u"the desktop's portal is asked for them when Palomet starts"_s);
    if (found.status.hotKeyProblem.isEmpty())
        return works(subject, u"held by the Palomet that runs, through the desktop's portal"_s);
    return fails(subject,
                 u"the desktop's portal granted none for %1; choose one for Palomet in the desktop's settings, "
                 "or another key in the window, under Listening; or %2"_s.arg(found.listenKey, byCommand));
}

Finding keysOfX11(const Examination &found, const QString &byCommand) {
    const auto subject = u"hot keys"_s;
    const bool isRunning = found.instance == Instance::Running;
    if (isRunning ? !found.status.hotKeyProblem.isEmpty() : found.key == Examination::Key::Taken) {
        const auto why = found.listenKeyHolder.isEmpty()
                             ? u"refused by X11: another program holds it"_s
                             : u"the desktop's own, for \"%1\""_s.arg(found.listenKeyHolder);
        return fails(subject, u"%1 is %2; choose another key in the window, under Listening, or %3"_s.arg(
                                  found.listenKey, why, byCommand));
    }
    if (isRunning)
        return works(subject, u"held by the Palomet that runs, through X11"_s);
    return works(subject, found.key == Examination::Key::Free ? u"through X11; %1 is free"_s.arg(found.listenKey)
                                                              : u"through X11"_s);
}

Finding hotKeys(const Examination &found) {
    const auto byCommand = u"bind \"palomet --listen\" and \"palomet --stop\" to keys in the desktop's settings"_s;
    switch (found.hotKeyRoute) {
    case Examination::HotKeyRoute::Portal:
        return keysOfPortal(found, byCommand);
    case Examination::HotKeyRoute::X11:
        return keysOfX11(found, byCommand);
    case Examination::HotKeyRoute::None:
        break;
    }
    return fails(u"hot keys"_s, u"there is no display to take them from"_s);
}

/// Why that way, as it goes on after it.
QString reason(const DisplayRoute &route) {
    switch (route.reason) {
    case DisplayRoute::Reason::Session:
        return {};
    case DisplayRoute::Reason::User:
        return u", as QT_QPA_PLATFORM says"_s;
    case DisplayRoute::Reason::NoPlugin:
        return u", for Qt's part for Wayland is not installed; the package qt6-wayland has it"_s;
    case DisplayRoute::Reason::NoLayers:
        return u", for the compositor has no layer shell to place the strip by"_s;
    }
    return {};
}

Finding window(const Examination &found) {
    const auto subject = u"window"_s;
    switch (found.display.way) {
    case DisplayRoute::Way::X11:
        return works(subject, u"through X11"_s + reason(found.display));
    case DisplayRoute::Way::XWayland:
        return works(subject, u"through XWayland"_s + reason(found.display));
    case DisplayRoute::Way::Wayland:
        return works(subject, u"through Wayland"_s + reason(found.display));
    case DisplayRoute::Way::Other:
        return works(subject, u"through Qt's own choice"_s + reason(found.display));
    case DisplayRoute::Way::None:
        break;
    }
    return fails(subject, u"there is no display to show it; on Wayland install qt6-wayland or XWayland"_s);
}

Finding strip(const Examination &found) {
    const auto subject = u"strip"_s;
    switch (found.display.way) {
    case DisplayRoute::Way::X11:
        return works(subject, u"a window of X11, above all others"_s);
    case DisplayRoute::Way::XWayland:
        return works(subject, u"through XWayland, above all others"_s);
    case DisplayRoute::Way::Wayland:
        if (found.display.hasLayers)
            return works(subject, u"through the compositor's layer shell, above all others"_s);
        return fails(subject, u"a window among the others, for the compositor has no layer shell; install XWayland"_s);
    case DisplayRoute::Way::Other:
        return works(subject, u"a window as Qt makes it"_s);
    case DisplayRoute::Way::None:
        break;
    }
    return fails(subject, u"there is no display to show it"_s);
}

Finding languages(const Examination &found) {
    return works(u"languages"_s, u"%1, of %2"_s.arg(found.language, found.wantedLanguages.join(u", "_s)));
}

} // namespace

QString Finding::line() const {
    return u"%1  %2: %3"_s.arg(verdict == Verdict::Works ? u"ok"_s : u"!!"_s, subject, text);
}

std::vector<Finding> diagnose(const Examination &found) {
    std::vector<Finding> findings{program(found)};
    if (!found.hasSessionBus)
        findings.push_back(fails(u"session bus"_s, u"there is none, hence no tray and no commands; install "
                                                   "dbus-user-session and log in again"_s));
    findings.push_back(resources(found));
    findings.push_back(engine(found));
    if (found.hearing && !found.hearing->text.isEmpty())
        findings.push_back(hearing(*found.hearing));
    findings.push_back(languages(found));
    findings.push_back(found.isLogWritable
                           ? works(u"log"_s, found.log)
                           : fails(u"log"_s, u"%1 cannot be written, so no backend is started; make it and its folder "
                                             "yours"_s.arg(found.log)));
    findings.push_back(port(found));
    findings.push_back(tray(found));
    findings.push_back(hotKeys(found));
    findings.push_back(window(found));
    if (found.display.way != DisplayRoute::Way::None)
        findings.push_back(strip(found));
    findings.push_back(soundServer(found));
    findings.push_back(microphone(found));
    findings.push_back(found.echoCanceller.isEmpty()
                           ? fails(u"echo canceller"_s, u"it cannot be made; install Palomet again"_s)
                           : works(u"echo canceller"_s, found.echoCanceller));
    if (!found.echoMaskProblem.isEmpty())
        findings.push_back(
            fails(u"echo mask"_s, u"not read (%1), so words spoken over the agent's voice are heard less well; install "
                                  "Palomet again"_s.arg(found.echoMaskProblem)));
    return findings;
}

Finding diagnoseLevel(const std::optional<SoundLevel> &level) {
    const auto subject = u"level"_s;
    if (!level)
        return fails(subject, u"not measured, for the microphone is not open"_s);
    const int peak = decibels(level->peak);
    if (peak < deaf)
        return fails(subject,
                     u"the microphone gives nothing but silence; see whether it is muted, by a switch on it or "
                     "in the desktop's sound settings"_s);
    return works(subject, u"peak %1 dB, mean %2 dB"_s.arg(peak).arg(decibels(level->mean)));
}

int decibels(double amplitude) {
    if (!(amplitude > 0))
        return silence;
    return std::max(silence, static_cast<int>(std::lround(20 * std::log10(amplitude))));
}

} // namespace palomet
