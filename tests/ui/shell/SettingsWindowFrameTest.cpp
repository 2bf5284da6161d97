#include "tests/ui/shell/SettingsWindowTest.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::SettingsWindowTest;

namespace {

/// What the window remembers of its frame.
class SettingsWindowFrameTest : public SettingsWindowTest {};

} // namespace

TEST_F(SettingsWindowFrameTest, SavesItsFrameWhenItWasMovedOrResized) {
    open();
    m_window->resize(1000, 700);
    EXPECT_FALSE(m_settings.contains(u"PalometWindow"_s));
    scheduler().advance(1s);
    EXPECT_EQ(m_settings.value(u"PalometWindow"_s).toRect().size(), QSize(1000, 700));
}

TEST_F(SettingsWindowFrameTest, SavesItsFrameAtOnceWhenItIsClosed) {
    open();
    m_window->resize(1000, 700);
    m_window->close();
    EXPECT_EQ(m_settings.value(u"PalometWindow"_s).toRect().size(), QSize(1000, 700));
    EXPECT_EQ(scheduler().pendingCount(), 0U);
}

TEST_F(SettingsWindowFrameTest, IgnoresASavedFrameThatIsNone) {
    m_settings.setValue(u"PalometWindow"_s, u"rubbish"_s);
    open();
    EXPECT_GE(m_window->width(), SettingsWindow::minimumContentSize.width());
    EXPECT_GE(m_window->height(), SettingsWindow::minimumContentSize.height());
}

TEST_F(SettingsWindowFrameTest, IsMaximizedOnlyIfThatIsWhatWasSaved) {
    for (const auto &[written, isMaximized] : {std::pair(u"banana"_s, false), std::pair(u"1"_s, false),
                                               std::pair(u"false"_s, false), std::pair(u"true"_s, true)}) {
        m_window.reset();
        m_settings.setValue(u"PalometWindowMaximized"_s, written);
        open();
        EXPECT_EQ(m_window->windowStates().testFlag(Qt::WindowMaximized), isMaximized) << written.toStdString();
    }
}
