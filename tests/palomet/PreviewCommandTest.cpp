#include "tests/palomet/ProgramTest.h"

#include <QImage>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

/// `palomet --preview --capture` itself, where there is neither display nor session bus nor sound nor backend.
class PreviewCommandTest : public test::ProgramTest {
protected:
    PreviewCommandTest() {
        for (const auto &name : {u"DISPLAY"_s, u"DBUS_SESSION_BUS_ADDRESS"_s, u"XDG_RUNTIME_DIR"_s})
            environment.remove(name);
    }

    [[nodiscard]] Outcome capture(const QString &pane) const {
        return command({u"--preview"_s, pane, u"--capture"_s, path});
    }
    [[nodiscard]] QSize captured() const { return QImage(path).size(); }

    const QString path = desktop.home.filePath(u"picture.png"_s);
};

} // namespace

TEST_F(PreviewCommandTest, WritesThePictureOfEveryPaneAndNothingElse) {
    for (const auto *pane : {"now", "history", "listening", "voice", "brain"}) {
        QFile::remove(path);
        const auto outcome = capture(QString::fromLatin1(pane));
        EXPECT_EQ(outcome.exitCode, 0) << pane;
        EXPECT_EQ(outcome.output, "") << pane;
        EXPECT_FALSE(outcome.errors.contains("does not support")) << pane;
        EXPECT_EQ(captured(), QSize(1120, 760)) << pane;
    }
    // Nothing else was written or started.
    EXPECT_EQ(log(), "");
    EXPECT_FALSE(QFile::exists(desktop.home.filePath(u".config/palomet"_s)));
}

TEST_F(PreviewCommandTest, TakesAPlatformThatIsSetButEmptyForNone) {
    setVariable("QT_QPA_PLATFORM", u""_s);
    EXPECT_EQ(capture(u"now"_s).exitCode, 0);
    EXPECT_EQ(captured(), QSize(1120, 760));
}

TEST_F(PreviewCommandTest, WritesItLargerWhenAScaleIsAskedFor) {
    setVariable("QT_SCALE_FACTOR", u"2"_s);
    EXPECT_EQ(capture(u"now"_s).exitCode, 0);
    EXPECT_EQ(captured(), QSize(2240, 1520));
}

TEST_F(PreviewCommandTest, SaysWhyItCannotWriteAndExitsWithOne) {
    QDir().mkpath(path);
    const auto outcome = capture(u"now"_s);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.contains("palomet: " + path.toUtf8())) << outcome.errors.toStdString();
}
