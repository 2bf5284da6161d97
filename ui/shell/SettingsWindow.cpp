#include "ui/shell/SettingsWindow.h"

#include "ui/shell/WindowFrame.h"
#include "ui/shell/WindowManagement.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <QSettings>

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const QString frameKey = u"PalometWindow"_s;
const QString maximizedKey = u"PalometWindowMaximized"_s;
constexpr std::chrono::milliseconds saveDelay{500};
constexpr QSize likelyTitleBar{0, 40};
/// Its content goes sideways and scrolls from minimumContentSize on down.
constexpr QSize smallestTile{320, 240};
/// Where the toolkit finds what the desktop gave for a window, also what the tray gives with a click.
constexpr auto *activationVariable = "XDG_ACTIVATION_TOKEN";

std::vector<QRect> usableScreens() {
    std::vector<QRect> usable;
    const auto *primary = QGuiApplication::primaryScreen();
    if (primary)
        usable.push_back(primary->availableGeometry());
    for (const auto *screen : QGuiApplication::screens()) {
        if (screen != primary)
            usable.push_back(screen->availableGeometry());
    }
    return usable;
}

} // namespace

SettingsWindow::SettingsWindow(QQmlEngine &engine, AppView &app, Scheduler &scheduler, QSettings *settings,
                               WindowManagement *management)
    : QQuickView(&engine, nullptr)
    , m_app(app)
    , m_scheduler(scheduler)
    , m_settings(settings)
    , m_management(management) {
    setTitle(u"Palomet"_s);
    setColor(Qt::white);
    setResizeMode(SizeRootObjectToView);
    restoreFrame();
    // Queued: at the signal the screen is still among the others.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &SettingsWindow::followScreens, Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &SettingsWindow::follow);
    for (const auto *screen : QGuiApplication::screens())
        follow(screen);
    connect(this, &QWindow::visibilityChanged, this, &SettingsWindow::updateShown);
    // The screen is up to date before its page is made.
    m_app.setShown(true);
    // With its final size it is laid out only once.
    setInitialProperties({{u"app"_s, QVariant::fromValue(&m_app)}, {u"width"_s, width()}, {u"height"_s, height()}});
    setSource(QUrl(u"qrc:/qt/qml/Palomet/Ui/MainView.qml"_s));
    updateShown();
}

SettingsWindow::~SettingsWindow() {
    // The base destructor hides the window, when this object's slots must no longer be called.
    disconnect(this, &QWindow::visibilityChanged, this, nullptr);
    if (m_saving)
        saveFrame();
    m_app.setShown(false);
}

void SettingsWindow::bringToFront(const QString &activation) {
    m_app.setShown(true);
    if (windowStates().testFlag(Qt::WindowMinimized)) {
        m_isKnown = false;
        setWindowStates(windowStates() & ~Qt::WindowMinimized);
    }
    const bool isGivenNothing = activation.isEmpty() && qEnvironmentVariableIsEmpty(activationVariable);
    if (isGivenNothing && !isActive() && m_management && m_management->raisesNewWindowsOnly())
        setVisible(false);
    // show() would end the maximised state.
    setVisible(true);
    raise();
    m_wantedActivation = activation;
    takeFocus();
}

void SettingsWindow::takeFocus() {
    // The desktop knows no window before it shows.
    const bool isKnown = isExposed() || (m_isKnown && !m_management->exposesCoveredWindows());
    if (!isKnown || !m_wantedActivation)
        return;
    const auto activation = *std::exchange(m_wantedActivation, std::nullopt);
    if (m_management && m_management->activate(winId()))
        return;
    if (activation.isEmpty())
        return requestActivate();
    // On Wayland the toolkit takes it from there. Nobody else is to find it.
    qputenv(activationVariable, activation.toUtf8());
    requestActivate();
    qunsetenv(activationVariable);
}

void SettingsWindow::updateShown() {
    m_app.setShown(isVisible() && visibility() != Minimized);
}

bool SettingsWindow::event(QEvent *event) {
    switch (event->type()) {
    case QEvent::PlatformSurface:
        if (m_management &&
            static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType() == QPlatformSurfaceEvent::SurfaceCreated)
            m_management->introduce(winId());
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        saveSoon();
        break;
    case QEvent::Expose:
        if (isExposed() && !std::exchange(m_isFrameOnScreen, true))
            keepFrameOnScreen();
        m_isKnown = m_management && (m_isKnown || isExposed());
        takeFocus();
        break;
    case QEvent::Hide:
        m_isKnown = false;
        break;
    case QEvent::Close:
        // The window is hidden rather than closed, and keeps everything in it.
        if (m_saving)
            saveFrame();
        hide();
        event->ignore();
        return true;
    default:
        break;
    }
    return QQuickView::event(event);
}

void SettingsWindow::keyPressEvent(QKeyEvent *event) {
    // No item has the focus: nothing would ignore the event, as the fallback below expects.
    if (!activeFocusItem())
        event->ignore();
    QQuickView::keyPressEvent(event);
    if (!event->isAccepted())
        event->setAccepted(handleKey(*event));
}

bool SettingsWindow::handleKey(const QKeyEvent &event) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto pane = static_cast<std::size_t>(event.key() - Qt::Key_1);
    if (modifiers == Qt::ControlModifier && event.key() >= Qt::Key_1 && pane < allPanes.size()) {
        m_app.navigation()->setPane(allPanes.at(pane));
        return true;
    }
    if (event.matches(QKeySequence::Close)) {
        close();
        return true;
    }
    if (!rootObject())
        return false;
    if (event.matches(QKeySequence::Copy)) {
        bool isCopied = false;
        QMetaObject::invokeMethod(rootObject(), "copy", Q_RETURN_ARG(bool, isCopied));
        return isCopied;
    }
    bool isTaken = false;
    if (modifiers == Qt::NoModifier)
        QMetaObject::invokeMethod(rootObject(), "scroll", Q_RETURN_ARG(bool, isTaken), Q_ARG(int, event.key()));
    return isTaken;
}

void SettingsWindow::restoreFrame() {
    const auto stored = m_settings ? m_settings->value(frameKey) : QVariant();
    const auto saved = stored.canConvert<QRect>() ? std::optional(stored.toRect()) : std::nullopt;
    auto screens = usableScreens();
    const auto untold = m_management ? m_management->untoldRoom() : QSize(0, 0);
    for (auto &screen : screens)
        screen.setSize(screen.size() - untold);
    // Around it stands a title bar, of a height that is not known yet.
    setMinimumSize(screens.empty() ? minimumContentSize : leastSize(screens.front().size() - likelyTitleBar));
    const auto frame = openingFrame(saved, screens, openingSize, minimumSize());
    // A window that remembers nothing has the same size on every screen.
    resize(m_settings ? frame.size() : openingSize);
    m_wanted = saved && saved->isValid() ? saved->size() : openingSize;
    m_fitted = size();
    // The content is centred, because the width of the frame is not known before the window shows.
    if (saved)
        setFramePosition(frame.topLeft());
    else
        setPosition(frame.topLeft());
    // toBool() would take every word but "false" and "0" for true.
    if (m_settings && m_settings->value(maximizedKey).toString() == "true"_L1)
        setWindowStates(Qt::WindowMaximized);
}

QSize SettingsWindow::leastSize(QSize room) const {
    if (m_management && m_management->holdsLeastSize())
        return smallestTile.boundedTo(room);
    // Where nobody manages windows, no screen is seen.
    return m_management ? minimumContentSize.boundedTo(room) : minimumContentSize;
}

void SettingsWindow::keepFrameOnScreen() {
    // A window that remembers nothing has the same size on every screen.
    if (!m_settings)
        return;
    const auto around = frameMargins();
    setMinimumSize(leastSize(screen()->availableSize().shrunkBy(around)));
    if (visibility() != Windowed)
        return;
    const auto frame = openingFrame(frameGeometry(), usableScreens(), openingSize, minimumSize().grownBy(around));
    if (frame == frameGeometry())
        return;
    if (size() != m_fitted)
        m_wanted = size();
    resize(frame.size().shrunkBy(around));
    m_fitted = size();
    setFramePosition(frame.topLeft());
}

void SettingsWindow::follow(const QScreen *screen) const {
    // Queued, because a change of the screens comes in several signals.
    connect(screen, &QScreen::availableGeometryChanged, this, &SettingsWindow::followScreens, Qt::QueuedConnection);
}

void SettingsWindow::followScreens() {
    m_isFrameOnScreen = isExposed();
    if (m_isFrameOnScreen)
        keepFrameOnScreen();
}

void SettingsWindow::saveSoon() {
    if (m_settings && isVisible() && !m_saving)
        m_saving = m_scheduler.after(saveDelay, [this] { saveFrame(); });
}

void SettingsWindow::saveFrame() {
    m_saving.reset();
    const bool isMaximized = windowStates() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    m_settings->setValue(maximizedKey, isMaximized);
    // The frame to come back to is the one before it was maximised.
    if (isMaximized)
        return;
    const QRect frame(framePosition(), size() == m_fitted ? m_wanted : size());
    // At a fractional scale a frame moves by a point when it is restored, which would add up from run to run.
    const auto saved = m_settings->value(frameKey).toRect();
    if (frame.size() != saved.size() || (frame.topLeft() - saved.topLeft()).manhattanLength() > 2)
        m_settings->setValue(frameKey, frame);
}

} // namespace palomet
