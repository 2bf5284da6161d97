#include "app/PreviewMode.h"

#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"

#include <QDir>
#include <QImage>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

namespace {

class PreviewModeTest : public ::testing::Test {
protected:
    PreviewMode &create(const QStringList &arguments) {
        m_mode = std::make_unique<PreviewMode>(PreviewMode::Parts{m_scheduler,
                                                                  QStringLiteral(PALOMET_BINARY_DIR "/resources"),
                                                                  m_folder.path(), u"1.2.3"_s},
                                               arguments);
        QObject::connect(m_mode.get(), &PreviewMode::finished, m_mode.get(),
                         [this](int exitCode) { m_exitCodes.append(exitCode); });
        m_mode->start();
        return *m_mode;
    }

    QTemporaryDir m_folder;
    test::ManualScheduler m_scheduler;
    std::unique_ptr<PreviewMode> m_mode;
    QList<int> m_exitCodes;
};

} // namespace

TEST_F(PreviewModeTest, TakesThePictureOneAndAHalfSecondsAfterTheStart) {
    const auto path = m_folder.filePath(u"voice.png"_s);
    create({u"--preview"_s, u"voice"_s, u"--capture"_s, path});
    m_scheduler.advance(1499ms);
    EXPECT_TRUE(m_exitCodes.isEmpty());
    EXPECT_FALSE(QFile::exists(path));
    m_scheduler.advance(1ms);
    EXPECT_EQ(m_exitCodes, QList<int>{0});
    EXPECT_EQ(QImage(path).size(), QSize(1120, 760));
}

TEST_F(PreviewModeTest, EndsWithOneWhenThePictureCannotBeWritten) {
    create({u"--preview"_s, u"--capture"_s, m_folder.filePath(u"missing/voice.png"_s)});
    ::testing::internal::CaptureStderr();
    m_scheduler.advance(2s);
    const auto said = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(m_exitCodes, QList<int>{1});
    EXPECT_TRUE(said.starts_with("palomet: ")) << said;
}

TEST_F(PreviewModeTest, StaysOpenWithoutAPathToCaptureTo) {
    auto &mode = create({u"--preview"_s, u"brain"_s, u"--capture"_s});
    m_scheduler.advance(10s);
    EXPECT_TRUE(m_exitCodes.isEmpty());
    EXPECT_TRUE(mode.window().isVisible());
    EXPECT_EQ(mode.window().rootObject()->property("pane").toInt(), static_cast<int>(Pane::Brain));
}

TEST_F(PreviewModeTest, EndsWhenItsWindowIsClosed) {
    create({u"--preview"_s}).window().close();
    EXPECT_EQ(m_exitCodes, QList<int>{0});
}

TEST_F(PreviewModeTest, WritesNothingIntoTheUsersHome) {
    create({u"--preview"_s, u"listening"_s});
    m_scheduler.advance(10s);
    m_mode->window().resize(1000, 700);
    m_scheduler.advance(10s);
    m_mode.reset();
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
}

TEST_F(PreviewModeTest, KeepsItsSampleWhateverIsPressed) {
    auto *app = create({u"--preview"_s}).window().rootObject()->property("app").value<AppView *>();
    ASSERT_NE(app, nullptr);
    const QString microphone = app->now()->shown().microphone;
    EXPECT_FALSE(microphone.isEmpty());
    app->now()->listen();
    EXPECT_TRUE(eventually([&] {
        m_scheduler.advance(10ms);
        return m_scheduler.pendingCount() == 0;
    })) << "what was sent has ended";
    EXPECT_EQ(app->now()->shown().microphone, microphone);
}
