#include "app/PreviewMode.h"

#include "ui/preview/Preview.h"

#include <cstdio>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto drawnWithin = 1500ms;

} // namespace

class PreviewMode::Allowed final : public MicrophonePermission {
public:
    [[nodiscard]] MicrophoneStatus status() const override { return MicrophoneStatus::Authorized; }
    void request(std::function<void()> answered) override { answered(); }
};

PreviewMode::PreviewMode(const Parts &parts, const QStringList &arguments)
    : m_scheduler(parts.scheduler)
    , m_capturePath(preview::capturePath(arguments))
    , m_permission(std::make_unique<Allowed>())
    // No address: what is sent reaches nobody.
    , m_model(m_scheduler, *m_permission, QUrl())
    , m_settings(m_folder.filePath(u"palomet.conf"_s), QSettings::IniFormat)
    , m_shortcuts(m_settings)
    , m_uiEngine(parts.resources)
    , m_appView(m_model, m_nav, m_shortcuts, m_layout, AppView::Details{parts.version, parts.home}, {}) {
    preview::fill(m_model);
    m_nav.setPane(preview::pane(arguments).value_or(Pane::Now));
    m_window =
        std::make_unique<SettingsWindow>(m_uiEngine.get(), m_appView, m_scheduler, nullptr, parts.windowManagement);
    connect(m_window.get(), &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (!isVisible)
            Q_EMIT finished(0);
    });
}

PreviewMode::~PreviewMode() {
    m_window->disconnect(this);
}

void PreviewMode::start() {
    if (!m_capturePath)
        return m_window->bringToFront();
    // A platform that shows no windows complains when it is asked for the front one.
    m_window->show();
    m_pendingCapture = m_scheduler.after(drawnWithin, [this] { capture(); });
}

void PreviewMode::capture() {
    const auto picture = preview::capture(*m_window, *m_capturePath);
    if (!picture)
        std::fprintf(stderr, "palomet: %s\n", picture.reason().toLocal8Bit().constData());
    Q_EMIT finished(picture ? 0 : 1);
}

} // namespace palomet
