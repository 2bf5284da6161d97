#include "ui/strip/StripWindow.h"

#include "ui/kit/Announcement.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace palomet {

StripWindow::StripWindow(UiEngine &engine, StripView &view, const WorkArea *workArea, Pointer pointer)
    : m_engine(engine)
    , m_view(view)
    , m_workArea(workArea)
    , m_pointer(pointer) {
    connect(&m_view, &StripView::changed, this, &StripWindow::announce);
    // Queued: at the signal the screen is still among the others.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &StripWindow::followScreens, Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &StripWindow::follow);
    for (const auto *screen : QGuiApplication::screens())
        follow(screen);
}

StripWindow::~StripWindow() {
    m_view.setShown(false);
}

bool StripWindow::isVisible() const {
    return m_window && m_window->isVisible();
}

QRect StripWindow::usable(const QScreen &screen) const {
    if (!m_workArea)
        return screen.availableGeometry();
    // The toolkit keeps a screen's corner in the display server's pixels and scales only its size, rounded to points.
    // Of the sizes in pixels that may have been rounded so, the smallest does not reach into the next screen.
    const auto scale = screen.devicePixelRatio();
    const auto frame = screen.geometry();
    const auto pixels = [scale](int points) { return static_cast<int>(std::ceil((points - 0.5) * scale)); };
    const QRect native(frame.topLeft(), QSize(pixels(frame.width()), pixels(frame.height())));
    const auto left = m_workArea->usable(native);
    const auto points = [scale](int from, int to) { return qRound((to - from) / scale); };
    // An edge that no panel takes from stays exactly where it is.
    auto usable = frame;
    usable.setTopLeft(frame.topLeft() + QPoint(points(native.left(), left.left()), points(native.top(), left.top())));
    if (left.right() != native.right())
        usable.setRight(frame.left() + points(native.left(), left.right() + 1) - 1);
    if (left.bottom() != native.bottom())
        usable.setBottom(frame.top() + points(native.top(), left.bottom() + 1) - 1);
    return usable;
}

std::vector<ScreenArea> StripWindow::screens() const {
    std::vector<ScreenArea> areas;
    for (const auto *screen : QGuiApplication::screens())
        areas.push_back({screen->geometry(), usable(*screen), screen == QGuiApplication::primaryScreen()});
    return areas;
}

std::optional<QPoint> StripWindow::pointer() const {
    return m_pointer == Pointer::Known ? std::optional(QCursor::pos()) : std::nullopt;
}

void StripWindow::follow(const QScreen *screen) const {
    // Queued, because a change of the screens comes in several signals.
    connect(screen, &QScreen::geometryChanged, this, &StripWindow::followScreens, Qt::QueuedConnection);
    connect(screen, &QScreen::availableGeometryChanged, this, &StripWindow::followScreens, Qt::QueuedConnection);
}

void StripWindow::followScreens() {
    if (!isVisible())
        return;
    const auto areas = screens();
    const auto middle = QRect(m_origin, size).center();
    const bool isOnScreen =
        std::any_of(areas.begin(), areas.end(), [&](const auto &area) { return area.frame.contains(middle); });
    orderFront(stripOrigin(areas, isOnScreen ? middle : pointer()));
}

void StripWindow::make() {
    m_window = std::make_unique<QQuickView>(&m_engine.get(), nullptr);
    m_window->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
                       Qt::BypassWindowManagerHint);
    m_window->setTitle(QStringLiteral("Palomet"));
    m_window->resize(size);
    m_window->setResizeMode(QQuickView::SizeRootObjectToView);
    m_window->setInitialProperties({{QStringLiteral("strip"), QVariant::fromValue(&m_view)}});
    m_window->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Palomet/Ui/StripContent.qml")));
    // The window has the strip's colour before the strip is painted.
    if (const auto *content = m_window->rootObject())
        m_window->setColor(content->property("color").value<QColor>());
}

void StripWindow::announce() {
    if (!isVisible() || m_announced == m_view.loopState())
        return;
    m_announced = m_view.loopState();
    if (!isStateSaidElsewhere())
        m_window->rootObject()->findChild<Announcement *>()->raise();
}

void StripWindow::orderFront(std::optional<QPoint> origin) {
    m_view.setShown(true);
    if (!m_window)
        make();
    if (origin) {
        m_origin = *origin;
        m_window->setPosition(m_origin);
    }
    m_window->show();
    m_window->raise();
    announce();
}

void StripWindow::orderOut() {
    m_view.setShown(false);
    m_announced.clear();
    if (m_window)
        m_window->hide();
}

} // namespace palomet
