#include "ui/shell/SettingsWindow.h"

#include "ui/shell/WindowFrame.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <QSettings>

#include <utility>

namespace palomet {

namespace {

const QString frameKey = QStringLiteral("PalometWindow");
const QString maximizedKey = QStringLiteral("PalometWindowMaximized");
constexpr std::chrono::milliseconds saveDelay{500};

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

SettingsWindow::SettingsWindow(QQmlEngine &engine, AppView &app, Scheduler &scheduler, QSettings *settings)
    : QQuickView(&engine, nullptr)
    , m_app(app)
    , m_scheduler(scheduler)
    , m_settings(settings) {
    setTitle(QStringLiteral("Palomet"));
    setColor(Qt::white);
    setMinimumSize(minimumContentSize);
    setResizeMode(SizeRootObjectToView);
    restoreFrame();
    connect(this, &QWindow::visibilityChanged, this, &SettingsWindow::updateShown);
    // The screen is up to date before it is made.
    m_app.setShown(true);
    // It is laid out once, in the size in which it is shown.
    setInitialProperties({{QStringLiteral("app"), QVariant::fromValue(&m_app)},
                          {QStringLiteral("width"), width()},
                          {QStringLiteral("height"), height()}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Palomet/Ui/MainView.qml")));
    updateShown();
}

SettingsWindow::~SettingsWindow() {
    // A window that is shown is hidden by the last of its destructors, when nothing of this class is left.
    disconnect(this, &QWindow::visibilityChanged, this, nullptr);
    if (m_saving)
        saveFrame();
    m_app.setShown(false);
}

void SettingsWindow::bringToFront() {
    m_app.setShown(true);
    if (windowStates().testFlag(Qt::WindowMinimized))
        setWindowStates(windowStates() & ~Qt::WindowMinimized);
    // Not show(), which would end the maximized state.
    setVisible(true);
    raise();
    requestActivate();
}

void SettingsWindow::updateShown() {
    m_app.setShown(isVisible() && visibility() != Minimized);
}

bool SettingsWindow::event(QEvent *event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        saveSoon();
        break;
    case QEvent::Expose:
        if (isExposed() && !std::exchange(m_wasExposed, true))
            keepFrameOnScreen();
        break;
    case QEvent::Close:
        // Hidden rather than closed: it is kept, with everything in it.
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
    // Without an item that has the focus, it would stay as it came.
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
    const auto frame = openingFrame(saved, usableScreens(), openingSize, minimumContentSize);
    // What remembers nothing is of its own size on every screen.
    resize(m_settings ? frame.size() : openingSize);
    // What stands in the middle is the content: how much goes around it is not known before it shows.
    if (saved)
        setFramePosition(frame.topLeft());
    else
        setPosition(frame.topLeft());
    // As it is written; every other word would be true, too.
    if (m_settings && m_settings->value(maximizedKey).toString() == QLatin1StringView("true"))
        setWindowStates(Qt::WindowMaximized);
}

void SettingsWindow::keepFrameOnScreen() {
    // What remembers nothing is of its own size on every screen.
    if (!m_settings || visibility() != Windowed)
        return;
    const auto around = frameMargins();
    const auto frame = openingFrame(frameGeometry(), usableScreens(), openingSize, minimumSize().grownBy(around));
    if (frame == frameGeometry())
        return;
    resize(frame.size().shrunkBy(around));
    setFramePosition(frame.topLeft());
}

void SettingsWindow::saveSoon() {
    if (m_settings && isVisible() && !m_saving)
        m_saving = m_scheduler.after(saveDelay, [this] { saveFrame(); });
}

void SettingsWindow::saveFrame() {
    m_saving.reset();
    const bool isMaximized = windowStates() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    m_settings->setValue(maximizedKey, isMaximized);
    // What it is to come back to is where it stood before.
    if (isMaximized)
        return;
    const QRect frame(framePosition(), size());
    // Between two pixels a frame becomes another by a point, which would add up from one run to the next.
    const auto saved = m_settings->value(frameKey).toRect();
    if (frame.size() != saved.size() || (frame.topLeft() - saved.topLeft()).manhattanLength() > 2)
        m_settings->setValue(frameKey, frame);
}

} // namespace palomet
