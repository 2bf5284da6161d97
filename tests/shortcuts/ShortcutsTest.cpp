#include "shortcuts/Shortcuts.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

using namespace palomet;

namespace {

class ShortcutsTest : public testing::Test {
protected:
    /// The stored text, read by another reader.
    [[nodiscard]] QString stored(const char *key) const {
        return QSettings(path, QSettings::IniFormat).value(QLatin1StringView(key)).toString();
    }
    void store(const char *key, const QString &value) {
        QSettings other(path, QSettings::IniFormat);
        other.setValue(QLatin1StringView(key), value);
    }
    void open() {
        settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
        shortcuts = std::make_unique<Shortcuts>(*settings);
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("palomet.conf"));
    std::unique_ptr<QSettings> settings;
    std::unique_ptr<Shortcuts> shortcuts;
    const QString optionSpace = QStringLiteral(R"({"keyCode":49,"flags":524288})");
    const QString escape = QStringLiteral(R"({"keyCode":53,"flags":0})");
};

} // namespace

TEST_F(ShortcutsTest, AreOptionSpaceAndEscapeAtFirstAndWrittenAtOnce) {
    open();
    EXPECT_EQ(shortcuts->listen(), Shortcut::opt(49));
    EXPECT_EQ(shortcuts->stop(), Shortcut(53, 0));
    EXPECT_FALSE(shortcuts->isPaused());
    EXPECT_EQ(stored("listenShortcut"), optionSpace);
    EXPECT_EQ(stored("stopShortcut"), escape);
}

TEST_F(ShortcutsTest, AreInTheFileAsSoonAsTheyAreSet) {
    open();
    shortcuts->setListen(Shortcut::opt(11));
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("11"));
}

TEST_F(ShortcutsTest, ThatWereClearedReturnAtTheNextStart) {
    open();
    shortcuts->setListen(std::nullopt);
    EXPECT_EQ(stored("listenShortcut"), QStringLiteral("none"));
    EXPECT_EQ(shortcuts->listen(), std::nullopt);
    open();
    EXPECT_EQ(shortcuts->listen(), Shortcut::opt(49));
    EXPECT_EQ(stored("listenShortcut"), optionSpace);
}

TEST_F(ShortcutsTest, StoredAsGarbageAreReplacedByTheDefaultAtOnce) {
    for (const auto &garbage : {QStringLiteral("garbage"), QStringLiteral("{\"keyCode\":49}"), QString(1 << 20, u'x'),
                                QStringLiteral("{\"keyCode\":1099511627776,\"flags\":0}"),
                                QStringLiteral("{\"keyCode\":\"49\",\"flags\":0}")}) {
        store("listenShortcut", garbage);
        open();
        EXPECT_EQ(shortcuts->listen(), Shortcut::opt(49));
        EXPECT_EQ(stored("listenShortcut"), optionSpace);
    }
}

TEST_F(ShortcutsTest, AreReadBackAsTheyWereSet) {
    open();
    shortcuts->setListen(Shortcut::ctrlOpt(40));
    shortcuts->setStop(Shortcut(96, 0));
    open();
    EXPECT_EQ(shortcuts->listen(), Shortcut::ctrlOpt(40));
    EXPECT_EQ(shortcuts->stop(), Shortcut(96, 0));
}

TEST_F(ShortcutsTest, WrittenAsTextOrAsBytesAreRead) {
    for (const auto *line : {R"x(listenShortcut="{\"keyCode\":40,\"flags\":262144}")x",
                             R"x(listenShortcut="@ByteArray({\"keyCode\":40,\"flags\":262144})")x"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(QByteArray("[General]\n") + line + '\n');
        file.close();
        open();
        EXPECT_EQ(shortcuts->listen(), Shortcut(40, Shortcut::control)) << line;
    }
}

TEST_F(ShortcutsTest, PausedAndResumedReportTwiceAndWriteNothing) {
    open();
    QFile::remove(path);
    int changes = 0;
    shortcuts->onChange = [&] { ++changes; };
    shortcuts->setPaused(true);
    shortcuts->setPaused(false);
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ShortcutsTest, SetToWhatTheyAreAreStillSavedAndReportedOnce) {
    open();
    store("listenShortcut", QStringLiteral("none"));
    int changes = 0;
    int announcements = 0;
    shortcuts->onChange = [&] { ++changes; };
    QObject::connect(shortcuts.get(), &Shortcuts::listenChanged, [&] { ++announcements; });
    shortcuts->setListen(shortcuts->listen());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(stored("listenShortcut"), optionSpace);
}

TEST_F(ShortcutsTest, AreAnnouncedThenSavedThenReported) {
    open();
    QStringList order;
    const auto note = [&](const QString &what, const char *key) {
        order.append(what + (stored(key) == QStringLiteral("none") ? QStringLiteral(": saved") : QString()));
    };
    QObject::connect(shortcuts.get(), &Shortcuts::listenChanged,
                     [&] { note(QStringLiteral("listen announced"), "listenShortcut"); });
    QObject::connect(shortcuts.get(), &Shortcuts::stopChanged,
                     [&] { note(QStringLiteral("stop announced"), "stopShortcut"); });
    shortcuts->onChange = [&] { note(QStringLiteral("listen reported"), "listenShortcut"); };
    shortcuts->setListen(std::nullopt);
    shortcuts->onChange = [&] { note(QStringLiteral("stop reported"), "stopShortcut"); };
    shortcuts->setStop(std::nullopt);
    EXPECT_EQ(order, QStringList({QStringLiteral("listen announced"), QStringLiteral("listen reported: saved"),
                                  QStringLiteral("stop announced"), QStringLiteral("stop reported: saved")}));
}

TEST_F(ShortcutsTest, WorkWithASettingsFileThatCannotBeWritten) {
    ASSERT_TRUE(QDir().mkpath(path)); // A folder stands in its place.
    open();
    EXPECT_EQ(shortcuts->listen(), Shortcut::opt(49));
    shortcuts->setListen(Shortcut::ctrlOpt(40));
    EXPECT_EQ(shortcuts->listen(), Shortcut::ctrlOpt(40));
    EXPECT_TRUE(QDir(path).exists());
}

TEST_F(ShortcutsTest, StoredWithFlagsBeyondTheMaskKeepThem) {
    store("listenShortcut", QStringLiteral(R"({"keyCode":40,"flags":4294967295})"));
    open();
    EXPECT_EQ(shortcuts->listen()->flags, 0xFFFFFFFFU);
    EXPECT_EQ(shortcuts->listen()->carbonModifiers(), 0x1B00U);
}

TEST_F(ShortcutsTest, OfAFileThatIsNoneAreTheDefault) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QByteArray nonsense(1 << 20, '\0');
    for (qsizetype i = 0; i < nonsense.size(); ++i)
        nonsense[i] = static_cast<char>(i * 7919 >> 3);
    file.write(nonsense);
    file.close();
    open();
    EXPECT_EQ(shortcuts->listen(), Shortcut::opt(49));
    shortcuts->setListen(Shortcut::ctrlOpt(40));
    EXPECT_EQ(shortcuts->listen(), Shortcut::ctrlOpt(40));
}

TEST_F(ShortcutsTest, OfAFileThatMayOnlyBeReadAreReadAndTheFileStaysAsItIs) {
    store("listenShortcut", QStringLiteral(R"({"keyCode":40,"flags":262144})"));
    const auto content = [this] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const auto before = content();
    const auto everybody = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto enter = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QFile::setPermissions(path, everybody);
    QFile::setPermissions(folder.path(), everybody | enter);
    const auto openAsNobody = [this] {
        constexpr uid_t nobody = 65534;
        // Nothing is forbidden to root.
        if (geteuid() == 0 && setresuid(nobody, nobody, nobody) != 0)
            exit(2);
        open();
        const bool isRead = shortcuts->listen() == Shortcut(40, Shortcut::control);
        shortcuts->setListen(Shortcut::ctrlOpt(41));
        exit(isRead && shortcuts->listen() == Shortcut::ctrlOpt(41) ? 0 : 1);
    };
    EXPECT_EXIT(openAsNobody(), ::testing::ExitedWithCode(0), "");
    EXPECT_EQ(content(), before);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}
