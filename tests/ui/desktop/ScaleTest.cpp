#include "tests/support/Windows.h"
#include "tests/ui/desktop/WindowOnDesktop.h"
#include "ui/strip/StripController.h"
#include "ui/strip/StripWindow.h"

#include <cmath>

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

namespace {

/// Whether nobody could tell them apart.
bool areAlike(const QColor &one, const QColor &other) {
    return std::abs(one.red() - other.red()) <= 2 && std::abs(one.green() - other.green()) <= 2 &&
           std::abs(one.blue() - other.blue()) <= 2;
}

/// The length of each run of that colour in a row or a column of pixels.
std::vector<int> runs(const QImage &line, const QColor &color) {
    const int count = line.width() * line.height();
    std::vector<int> found;
    for (int at = 0, length = 0; at <= count; ++at) {
        const bool isIt = at < count && areAlike(line.pixelColor(at % line.width(), at / line.width()), color);
        if (!isIt && length > 0)
            found.push_back(length);
        length = isIt ? length + 1 : 0;
    }
    return found;
}

/// Two screens of a width that no scale divides, side by side, whatever the scale of each.
class StripAtItsScale : public test::DesktopTest {
protected:
    StripAtItsScale() {
        run("xrandr --setmonitor first 1366/300x1024/240+0+0 screen");
        run("xrandr --setmonitor second 1194/300x1024/240+1366+0 none");
        EXPECT_TRUE(eventually([] {
            const auto screens = QGuiApplication::screens();
            return screens.size() == 2 && screens[1]->geometry().topLeft() == second.topLeft();
        }));
    }
    ~StripAtItsScale() override {
        run("xrandr --delmonitor second");
        run("xrandr --delmonitor first");
        EXPECT_TRUE(eventually([] { return QGuiApplication::screens().size() == 1; }));
    }

    static double scaleOf(const QRect &screen) {
        for (const auto *candidate : QGuiApplication::screens()) {
            if (candidate->geometry().topLeft() == screen.topLeft())
                return candidate->devicePixelRatio();
        }
        return 0;
    }

    /// It stands there in pixels, 440 x 40 points, 48 points above what a dock leaves; a pixel is lost where points
    /// are rounded.
    void expectOn(const QRect &screen, int dock = 0) {
        const auto scale = scaleOf(screen);
        const QSize size(qRound(440 * scale), qRound(40 * scale));
        const QPoint origin(screen.center().x() + 1 - size.width() / 2,
                            screen.bottom() + 1 - dock - qRound(48 * scale) - size.height());
        const auto isThere = [&] {
            const auto found = rectangle(*test::stripWindows().constFirst());
            return found.size() == size && (found.topLeft() - origin).manhattanLength() <= 3;
        };
        const auto isSeen = eventually(isThere);
        const auto found = rectangle(*test::stripWindows().constFirst());
        EXPECT_TRUE(isSeen) << "at " << scale << ": " << found.x() << ',' << found.y() << ' ' << found.width() << 'x'
                            << found.height() << " instead of " << origin.x() << ',' << origin.y();
        expectSharp(found, scale);
    }

    /// It is painted up to its corners; the key cap's outline is a whole number of pixels above and below, and nothing
    /// between.
    void expectSharp(const QRect &strip, double scale) const {
        const auto isPainted = [&] {
            const auto image = picture(strip);
            return image.pixelColor(0, 0) == test::dark &&
                   image.pixelColor(strip.width() - 1, strip.height() - 1) == test::dark;
        };
        EXPECT_TRUE(eventually(isPainted));
        const QColor outline(0x37, 0x41, 0x51);
        const QRect throughCap(strip.right() - qRound(35 * scale), strip.top(), 1, strip.height());
        const auto lines = [&] { return runs(picture(throughCap), outline); };
        const auto thickness = static_cast<int>(std::floor(scale));
        EXPECT_TRUE(eventually(
            [&] {
                return lines() == std::vector{thickness, thickness};
            },
            3s))
            << ::testing::PrintToString(lines()) << " at " << scale;
    }

    void showUnder(const QPoint &pointer) {
        run("xdotool mousemove %1 %2", pointer.x(), pointer.y());
        setState("thinking");
    }
    void hide() {
        setState("waiting");
        scheduler().advance(5s);
    }

    static constexpr QRect first{0, 0, 1366, 1024};
    static constexpr QRect second{1366, 0, 1194, 1024};

    StripView m_view{model(), [] {}};
    StripWindow m_panel{m_ui, m_view, &m_workArea, StripWindow::Pointer::Known};
    StripController m_strip{model(), m_panel, scheduler()};
};

class WindowAtItsScale : public test::WindowOnDesktop {};

} // namespace

TEST_F(StripAtItsScale, StandsOnTheScreenUnderThePointer) {
    for (int round = 0; round < 2; ++round) {
        for (const auto &screen : {first, second}) {
            // Also at the very edge, where the rounded screens meet or overlap.
            for (const auto &pointer : {screen.center(), screen.topLeft() + QPoint(1, 300)}) {
                showUnder(pointer);
                expectOn(screen);
                hide();
            }
        }
    }
}

TEST_F(StripAtItsScale, StandsAboveTheDockOfItsScreenAndOfNoOther) {
    // A dock reserves from the end of the whole display, wherever its screen ends.
    const int height = display().height() - 1024 + 90;
    {
        const auto dock = showDock(height, 1366, 2559);
        showUnder(second.center());
        expectOn(second, 90);
        hide();
        showUnder(first.center());
        expectOn(first);
        hide();
    }
    const auto dock = showDock(height, 0, 1365);
    showUnder(first.center());
    expectOn(first, 90);
    hide();
    showUnder(second.center());
    expectOn(second);
}

TEST_F(WindowAtItsScale, OpensInTheSamePlaceAndSizeInPointsWhateverTheScaleWasBefore) {
    const QRect saved(301, 121, 1001, 701);
    m_settings.setValue(u"PalometWindow"_s, saved);
    for (int round = 0; round < 5; ++round) {
        open();
        const auto scale = m_window->devicePixelRatio();
        const auto distance = [&] { return m_window->framePosition() - saved.topLeft(); };
        EXPECT_TRUE(eventually([&] { return distance().manhattanLength() <= 2; }))
            << distance().x() << ',' << distance().y() << " off in round " << round;
        EXPECT_EQ(m_window->size(), saved.size());
        EXPECT_NEAR(rectangle(*m_window).width(), 1001 * scale, 1);
        EXPECT_NEAR(rectangle(*m_window).height(), 701 * scale, 1);
        scheduler().advance(1s);
        m_window->close();
        EXPECT_EQ(m_settings.value(u"PalometWindow"_s).toRect(), saved) << "in round " << round;
    }
}

TEST_F(WindowAtItsScale, DrawsEveryRuleAsThickAsTheEdgesOfControls) {
    setFull();
    m_navigation.setPane(Pane::Listening);
    open();
    const QColor rule(0xE5, 0xE7, 0xEB);
    const auto lines = [&](const QRectF &points) {
        const auto scale = m_window->devicePixelRatio();
        const auto image = m_window->grabWindow().convertToFormat(QImage::Format_RGB32);
        return runs(image.copy(QRectF(points.topLeft() * scale, points.size() * scale).toRect()), rule);
    };
    // Whole pixels, and at every scale the same: what is left over of a point is left out.
    const auto thickness = static_cast<int>(std::floor(m_window->devicePixelRatio()));
    const auto areThin = [&](const std::vector<int> &found, std::size_t least) {
        return found.size() >= least &&
               std::all_of(found.begin(), found.end(), [&](int length) { return length == thickness; });
    };
    const auto down = [&] { return lines({600, 150, 1 / m_window->devicePixelRatio(), 500}); };
    const auto across = [&] { return lines({200, 400, 200, 1 / m_window->devicePixelRatio()}); };
    EXPECT_TRUE(eventually([&] { return areThin(down(), 4); })) << ::testing::PrintToString(down());
    EXPECT_TRUE(eventually([&] { return areThin(across(), 1); })) << ::testing::PrintToString(across());
}
