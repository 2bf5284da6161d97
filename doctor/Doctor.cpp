#include "doctor/Doctor.h"

#include <utility>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// The runtime is large, and slow to load from a busy disk.
constexpr auto patience = 4s;
constexpr auto patienceAfterSilence = 2s;
constexpr auto listening = 3s;
constexpr auto glance = 100ms;

} // namespace

Doctor::Doctor(Parts parts)
    : m_parts(std::move(parts)) {}

Doctor::~Doctor() {
    m_parts.sound.closeCapture();
    m_parts.sound.closePlayback();
}

void Doctor::start() {
    m_parts.sound.start(m_probe);
    m_parts.sound.openPlayback();
    m_glance = m_parts.scheduler.every(glance, [this] { lookAgain(); });
    const bool hasWaited = m_parts.known.instance == Examination::Instance::Silent;
    m_limit = m_parts.scheduler.after(hasWaited ? patienceAfterSilence : patience, [this] { report(); });
}

void Doctor::openMicrophone() {
    m_capture = Capture::Opening;
    m_parts.sound.openCapture([this](const auto &problem) { m_capture = problem ? Capture::Failed : Capture::Open; });
}

void Doctor::lookAgain() {
    const auto permission = m_parts.permission.status();
    if (permission == MicrophoneStatus::NotDetermined || m_parts.tray.status() == TrayHost::Status::NotDetermined)
        return;
    // No permission: do not open the microphone.
    if (m_capture == Capture::NotAsked && permission == MicrophoneStatus::Authorized)
        openMicrophone();
    const bool isMicrophoneKnown =
        m_capture == Capture::Open || m_capture == Capture::Failed || permission != MicrophoneStatus::Authorized;
    const bool hasEngineTold =
        !m_parts.runtimeVersion().isEmpty() && (!m_parts.known.hasEngine || m_parts.hearing().has_value());
    if (isMicrophoneKnown && m_probe.hasPlayed() && hasEngineTold)
        report();
}

void Doctor::report() {
    m_glance.reset();
    m_limit.reset();
    auto found = m_parts.known;
    found.runtimeVersion = m_parts.runtimeVersion();
    found.hearing = m_parts.hearing();
    found.permission = m_parts.permission.status();
    found.tray = m_parts.tray.status();
    found.inputs = m_parts.sound.inputDevices();
    found.defaultInput = m_parts.sound.defaultInput();
    found.isCaptureOpen = m_capture == Capture::Open;
    found.isSoundServerThere = m_probe.hasPlayed() || found.isCaptureOpen || !found.inputs.empty();
    for (const auto &finding : diagnose(found))
        print(finding);
    if (found.isCaptureOpen)
        listen();
    else
        finish();
}

void Doctor::listen() {
    m_probe.restart();
    static_cast<void>(m_probe.takePeak());
    m_glance = m_parts.scheduler.every(glance, [this] { m_parts.showLevel(decibels(m_probe.takePeak())); });
    m_limit = m_parts.scheduler.after(listening, [this] { finish(); });
}

void Doctor::finish() {
    if (m_capture == Capture::Open)
        m_parts.showLevel(std::nullopt);
    print(diagnoseLevel(m_capture == Capture::Open ? m_probe.level() : std::nullopt));
    m_glance.reset();
    m_limit.reset();
    m_parts.done(m_isAllWell ? 0 : 1);
}

void Doctor::print(const Finding &finding) {
    m_isAllWell &= finding.verdict == Finding::Verdict::Works;
    m_parts.print(finding.line());
}

} // namespace palomet
