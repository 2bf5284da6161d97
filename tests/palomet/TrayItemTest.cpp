#include "tests/palomet/Desktop.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

class TrayItemTest : public ::testing::Test {
protected:
    ~TrayItemTest() override {
        program.kill();
        program.waitForFinished();
    }

    void start(const QString &device = u"Headset"_s) {
        program.setProcessEnvironment(desktop.environment());
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(u"" PALOMET_TRAY_PROGRAM ""_s, {device});
        ASSERT_TRUE(program.waitForStarted());
    }

    bool awaitItem() {
        return eventually([this] { return !desktop.tray.items().isEmpty(); }) &&
               eventually([this] { return !desktop.tray.menu().empty(); });
    }

    test::Desktop desktop;
    QProcess program;
};

} // namespace

TEST_F(TrayItemTest, HasTheMenuWithItsTitlesStatesAndKeys) {
    desktop.tray.appear();
    start();
    ASSERT_TRUE(awaitItem());
    QStringList entries;
    for (const auto &entry : desktop.tray.menu()) {
        entries.append(entry.isSeparator()
                           ? u"-"_s
                           : entry.title() + (entry.isEnabled() ? u" on "_s : u" off "_s) + entry.shortcut());
    }
    EXPECT_EQ(entries, (QStringList{u"Waiting · Headset off "_s, u"-"_s, u"Listen on "_s, u"Stop on "_s, u"Mute on "_s,
                                    u"-"_s, u"Open Palomet on Control+O"_s, u"-"_s, u"Quit Palomet on Control+Q"_s}))
        << qPrintable(entries.join(u'|'));
}

TEST_F(TrayItemTest, ShowsTheNameOfTheDeviceAsItIs) {
    desktop.tray.appear();
    for (const auto &device :
         {u"R&D_mic <b>1</b>"_s, u"_"_s, u"&"_s, u"a & b && c & _d_"_s, u"__x__&"_s, u"&&"_s, u"100 % &amp; \\n"_s}) {
        start(device);
        ASSERT_TRUE(awaitItem());
        EXPECT_EQ(desktop.tray.menu().front().title(), u"Waiting · "_s + device);
        ASSERT_TRUE(desktop.tray.click(u"Quit Palomet"_s));
        ASSERT_TRUE(eventually([this] { return program.state() == QProcess::NotRunning; }));
        desktop.tray.vanish();
        desktop.tray.appear();
    }
}

TEST_F(TrayItemTest, HasATitleAPictureAndATip) {
    desktop.tray.appear();
    start();
    ASSERT_TRUE(awaitItem());
    EXPECT_EQ(desktop.tray.property(u"IconName"_s).toString(), QString());
    const auto pictures = desktop.tray.property(u"IconPixmap"_s).value<QDBusArgument>();
    QList<int> widths;
    pictures.beginArray();
    while (!pictures.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray pixels;
        pictures.beginStructure();
        pictures >> width >> height >> pixels;
        pictures.endStructure();
        EXPECT_EQ(pixels.size(), width * height * 4);
        widths.append(width);
    }
    pictures.endArray();
    EXPECT_TRUE(widths.contains(22)) << widths.size();

    const auto tip = desktop.tray.property(u"ToolTip"_s).value<QDBusArgument>();
    QString iconName;
    QString title;
    tip.beginStructure();
    tip >> iconName;
    tip.beginArray();
    while (!tip.atEnd())
        tip.asVariant();
    tip.endArray();
    tip >> title;
    EXPECT_EQ(title, u"Palomet"_s);
}

TEST_F(TrayItemTest, AppearsWhenAHostDoes) {
    start();
    desktop.tray.appear(test::TrayHostDouble::Host::Absent);
    desktop.tray.setHost(test::TrayHostDouble::Host::Present);
    EXPECT_TRUE(awaitItem());
}

TEST_F(TrayItemTest, IsThereAgainAfterTheWatcherWasRestarted) {
    desktop.tray.appear();
    start();
    for (int restart = 0; restart < 20; ++restart) {
        ASSERT_TRUE(awaitItem());
        desktop.tray.vanish();
        desktop.tray.appear();
    }
    ASSERT_TRUE(awaitItem());
    EXPECT_EQ(desktop.tray.items().size(), 1);
}

TEST_F(TrayItemTest, ObeysAClick) {
    desktop.tray.appear();
    start();
    ASSERT_TRUE(awaitItem());
    desktop.tray.open();
    ASSERT_TRUE(desktop.tray.click(u"Quit Palomet"_s));
    ASSERT_TRUE(eventually([this] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitCode(), 0);
}
