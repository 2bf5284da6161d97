#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11WorkArea.h"
#include "platform/x11/XcbReply.h"
#include "tests/ui/support/UiTest.h"
#include "ui/UiEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QRasterWindow>
#include <QScreen>

#include <cstring>

namespace palomet::test {

/// The strip's ground.
inline const QColor dark(0x11, 0x18, 0x1C);

/// A window of one colour, as any other program would have.
class PlainWindow final : public QRasterWindow {
public:
    explicit PlainWindow(const QColor &color)
        : m_color(color) {}

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(QRect({}, size()), m_color); }

private:
    const QColor m_color;
};

/// A display with a window manager, and the tools that look at it from outside.
class DesktopTest : public UiTest {
protected:
    DesktopTest() {
        // What the last one left behind.
        run("xprop -root -remove _NET_SUPPORTING_WM_CHECK");
        m_windowManager.start(QStringLiteral("openbox"),
                              {QStringLiteral("--config-file"), QStringLiteral("/dev/null")});
        EXPECT_TRUE(eventually([] { return run("xprop -root _NET_SUPPORTING_WM_CHECK").contains("window id"); }));
        run("xdotool mousemove 100 100");
    }
    ~DesktopTest() override {
        m_windowManager.terminate();
        m_windowManager.waitForFinished();
    }

    /// What a command prints, the event loop going on meanwhile.
    static QByteArray run(const QString &command) {
        QProcess process;
        process.startCommand(command);
        eventually([&] { return process.state() == QProcess::NotRunning; });
        return process.readAllStandardOutput();
    }
    static QByteArray run(const char *command) { return run(QString::fromLatin1(command)); }
    template <typename... Arguments>
    static QByteArray run(const char *command, Arguments... arguments) {
        QString text = QString::fromLatin1(command);
        ((text = text.arg(arguments)), ...);
        return run(text);
    }

    static qulonglong focusedWindow() { return run("xdotool getwindowfocus").trimmed().toULongLong(); }

    /// The colour of a point of the display, as anybody would see it.
    static QColor colorAt(QPoint point) {
        return QGuiApplication::primaryScreen()->grabWindow(0, point.x(), point.y(), 1, 1).toImage().pixelColor(0, 0);
    }

    /// What can be seen there, in the display's own pixels.
    [[nodiscard]] QImage picture(const QRect &area) const {
        QImage picture(area.size(), QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        const auto cookie = xcb_get_image(m_x11->get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_x11->root(),
                                          static_cast<qint16>(area.x()), static_cast<qint16>(area.y()),
                                          static_cast<quint16>(area.width()), static_cast<quint16>(area.height()), ~0U);
        const XcbReply<xcb_get_image_reply_t> reply{xcb_get_image_reply(m_x11->get(), cookie, nullptr)};
        if (reply && xcb_get_image_data_length(reply.get()) == picture.sizeInBytes())
            std::memcpy(picture.bits(), xcb_get_image_data(reply.get()),
                        static_cast<std::size_t>(picture.sizeInBytes()));
        return picture;
    }

    /// All screens together, in pixels.
    [[nodiscard]] QSize display() const {
        const auto cookie = xcb_get_geometry(m_x11->get(), m_x11->root());
        const XcbReply<xcb_get_geometry_reply_t> reply{xcb_get_geometry_reply(m_x11->get(), cookie, nullptr)};
        return reply ? QSize(reply->width, reply->height) : QSize();
    }

    /// A panel along the end of the display that reserves so many pixels of it, between these two.
    static std::unique_ptr<PlainWindow> showDock(int height, int from, int to) {
        auto dock = std::make_unique<PlainWindow>(Qt::blue);
        dock->setFlag(Qt::FramelessWindowHint);
        dock->resize(100, 20);
        dock->create();
        const auto id = dock->winId();
        run("xprop -id %1 -f _NET_WM_WINDOW_TYPE 32a -set _NET_WM_WINDOW_TYPE _NET_WM_WINDOW_TYPE_DOCK", id);
        run("xprop -id %1 -f _NET_WM_STRUT_PARTIAL 32c -set _NET_WM_STRUT_PARTIAL 0,0,0,%2,0,0,0,0,0,0,%3,%4", id,
            height, from, to);
        dock->show();
        EXPECT_TRUE(eventually(
            [&] { return run("xprop -root _NET_CLIENT_LIST").contains("0x" + QByteArray::number(id, 16)); }));
        return dock;
    }

    /// The window's rectangle on the display.
    static QRect rectangle(const QWindow &window) {
        const auto text = run("xwininfo -id %1", window.winId());
        const auto number = [&](const char *name) {
            const auto at = text.indexOf(name) + QByteArray(name).size();
            return text.mid(at, text.indexOf('\n', at) - at).trimmed().toInt();
        };
        return {number("Absolute upper-left X:"), number("Absolute upper-left Y:"), number("Width:"),
                number("Height:")};
    }

    static void show(QWindow &window) {
        window.show();
        window.requestActivate();
        EXPECT_TRUE(eventually([&] { return focusedWindow() == window.winId(); }));
    }

    static bool hasScreens(const QList<QRect> &wanted) {
        QList<QRect> found;
        for (const auto *screen : QGuiApplication::screens())
            found.append(screen->geometry());
        return found == wanted;
    }

    QProcess m_windowManager;
    std::unique_ptr<X11Connection> m_x11 = X11Connection::open();
    X11WorkArea m_workArea{*m_x11};
    UiEngine m_ui{QStringLiteral(PALOMET_BINARY_DIR "/resources")};
};

} // namespace palomet::test
