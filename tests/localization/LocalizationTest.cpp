#include "localization/Localization.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

/// A resource folder with the tables that a test needs.
class LocalizationTest : public ::testing::Test {
protected:
    void SetUp() override { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void TearDown() override {
        QLocale::setDefault(QLocale::system());
        Localization::load(QString(), {});
    }

    void write(const QString &language, QByteArrayView json) {
        const auto folder = m_resources.filePath(language + u".lproj"_s);
        ASSERT_TRUE(QDir().mkpath(folder));
        QFile file(folder + u"/strings.json"_s);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json.data(), json.size());
    }

    void load(const QStringList &preferred) { Localization::load(m_resources.path(), preferred); }

    QTemporaryDir m_resources;
};

/// Names the user's languages in the environment for as long as it lives, and nothing else does.
class Environment {
public:
    Environment(std::initializer_list<std::pair<const char *, const char *>> values) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            m_before.push_back(qgetenv(names[i]));
            qunsetenv(names[i]);
        }
        for (const auto &[name, value] : values)
            qputenv(name, value);
    }
    ~Environment() {
        for (std::size_t i = 0; i < names.size(); ++i)
            m_before[i].isNull() ? qunsetenv(names[i]) : qputenv(names[i], m_before[i]);
    }
    Q_DISABLE_COPY_MOVE(Environment)

private:
    static constexpr std::array names{"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
    std::vector<QByteArray> m_before;
};

} // namespace

TEST_F(LocalizationTest, GivesTheTextInTheUsersLanguage) {
    write(u"en"_s, R"({"menu.stop": "Stop"})");
    write(u"pt-BR"_s, R"({"menu.stop": "Parar"})");
    load({u"pt-PT"_s, u"en"_s});
    EXPECT_EQ(L("menu.stop"), u"Parar"_s);
    load({u"en-GB"_s, u"pt"_s});
    EXPECT_EQ(L("menu.stop"), u"Stop"_s);
}

TEST_F(LocalizationTest, GivesATextThatIsItsKey) {
    write(u"en"_s, R"({"row.tool": "Tool"})");
    write(u"pt-BR"_s, R"({"row.tool": "row.tool"})");
    load({u"pt-BR"_s});
    EXPECT_EQ(L("row.tool"), u"row.tool"_s);
}

TEST_F(LocalizationTest, FallsBackToEnglishAndThenToTheKey) {
    write(u"en"_s, R"({"only.english": "English", "both": "English"})");
    write(u"pt-BR"_s, R"({"both": "Português", "only.english": 7})");
    load({u"pt-BR"_s});
    EXPECT_EQ(L("both"), u"Português"_s);
    EXPECT_EQ(L("only.english"), u"English"_s);
    EXPECT_EQ(L("nowhere.at all"), u"nowhere.at all"_s);
    EXPECT_EQ(L(""), u""_s);
}

TEST_F(LocalizationTest, GivesTheKeyWhereThereIsNoEnglishTable) {
    write(u"pt-BR"_s, R"({"both": "Português"})");
    load({u"pt-BR"_s});
    EXPECT_EQ(L("both"), u"Português"_s);
    EXPECT_EQ(L("menu.stop"), u"menu.stop"_s);
    load({u"fr"_s});
    EXPECT_EQ(L("both"), u"both"_s);
    EXPECT_EQ(Localization::language(), u"en"_s);
}

TEST_F(LocalizationTest, SpeaksEnglishToWhoeverIsNotServedOtherwise) {
    write(u"en"_s, R"({"menu.stop": "Stop"})");
    write(u"pt-BR"_s, R"({"menu.stop": "Parar"})");
    for (const QStringList &preferred : {QStringList{}, QStringList{u"ja"_s}, QStringList{u""_s, u"?"_s}}) {
        load(preferred);
        EXPECT_EQ(Localization::language(), u"en"_s);
        EXPECT_EQ(L("menu.stop"), u"Stop"_s);
    }
}

TEST_F(LocalizationTest, TakesAnUnreadableTableAsAnEmptyOne) {
    write(u"en"_s, R"({"menu.stop": "Stop"})");
    write(u"pt-BR"_s, R"({"menu.stop": )");
    load({u"pt-BR"_s});
    EXPECT_EQ(Localization::language(), u"pt-BR"_s);
    EXPECT_EQ(L("menu.stop"), u"Stop"_s);

    write(u"en"_s, "[]");
    load({u"pt-BR"_s});
    EXPECT_EQ(L("menu.stop"), u"menu.stop"_s);
}

TEST_F(LocalizationTest, StandsWithoutAResourceFolder) {
    Localization::load(m_resources.filePath(u"none"_s), {u"pt-BR"_s});
    EXPECT_EQ(L("menu.stop"), u"menu.stop"_s);
    EXPECT_EQ(Localization::language(), u"en"_s);
    EXPECT_FALSE(Localization::isPortuguese());
}

TEST_F(LocalizationTest, NamesItsLanguageAsTheFolderDoes) {
    write(u"en"_s, "{}");
    for (const char *folder : {"pt-BR", "PT", "pt_PT"}) {
        const auto language = QString::fromUtf8(folder);
        write(language, "{}");
        load({u"pt"_s});
        EXPECT_EQ(Localization::language(), language);
        EXPECT_TRUE(Localization::isPortuguese());
        ASSERT_TRUE(QDir(m_resources.filePath(language + u".lproj"_s)).removeRecursively());
    }
    load({u"pt"_s});
    EXPECT_EQ(Localization::language(), u"en"_s);
    EXPECT_FALSE(Localization::isPortuguese());
}

TEST_F(LocalizationTest, ChoosesThePluralFormByOneAndEverythingElse) {
    write(u"en"_s, R"({"strip.drafted.one": "%d part", "strip.drafted.other": "%ld parts"})");
    load({u"en"_s});
    EXPECT_EQ(L("strip.drafted", Count{1}), u"1 part"_s);
    EXPECT_EQ(L("strip.drafted", Count{0}), u"0 parts"_s);
    EXPECT_EQ(L("strip.drafted", Count{2}), u"2 parts"_s);
    EXPECT_EQ(L("strip.drafted", Count{-1}), u"-1 parts"_s);
    EXPECT_EQ(L("nothing", Count{1}), u"nothing.one"_s);
}

TEST_F(LocalizationTest, LeavesPercentSignsAloneWithoutArguments) {
    write(u"en"_s, R"({"a": "100%% of %@ at %d %"})");
    load({u"en"_s});
    EXPECT_EQ(L("a"), u"100%% of %@ at %d %"_s);
    EXPECT_EQ(L("a", std::initializer_list<FormatArgument>{}), u"100%% of %@ at %d %"_s);
    EXPECT_EQ(L("a", {u"x"_s, 5}), u"100% of x at 5 %"_s);
}

TEST_F(LocalizationTest, WritesNumbersAsTheRegionDoesWhateverTheLanguage) {
    write(u"en"_s, R"({"a": "%.1f s", "b.other": "%d"})");
    load({u"en"_s});
    EXPECT_EQ(L("a", 2.5), u"2.5 s"_s);
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    EXPECT_EQ(L("a", 2.5), u"2,5 s"_s);
    EXPECT_EQ(L("b", Count{12'345}), u"12.345"_s);
}

TEST_F(LocalizationTest, AnswersSeveralThreadsAtOnce) {
    write(u"en"_s, R"({"only.english": "English %d"})");
    write(u"pt-BR"_s, "{}");
    load({u"pt-BR"_s});
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([] {
            for (int i = 0; i < 200; ++i)
                EXPECT_EQ(L("only.english", 5), u"English 5"_s);
        });
    }
    for (auto &thread : threads)
        thread.join();
}

TEST(PreferredLanguages, AreThoseOfTheFirstVariableThatNamesAny) {
    {
        const Environment environment{{"LANGUAGE", "pt_BR:en_US"}, {"LC_ALL", "fr_FR"}, {"LANG", "de_DE"}};
        EXPECT_EQ(Localization::preferredLanguages(), QStringList({u"pt-BR"_s, u"en-US"_s}));
    }
    {
        const Environment environment{{"LANGUAGE", ""}, {"LC_ALL", "fr_FR.UTF-8"}, {"LC_MESSAGES", "it_IT"}};
        EXPECT_EQ(Localization::preferredLanguages(), QStringList({u"fr-FR"_s}));
    }
    {
        const Environment environment{{"LC_MESSAGES", "it_IT@euro"}, {"LANG", "de_DE"}};
        EXPECT_EQ(Localization::preferredLanguages(), QStringList({u"it-IT"_s}));
    }
    {
        const Environment environment{{"LANGUAGE", ":"}, {"LC_ALL", "nonsense"}, {"LANG", "C.UTF-8"}};
        EXPECT_EQ(Localization::preferredLanguages(), QStringList({u"en"_s}));
    }
}

TEST(PreferredLanguages, AreNoneWhenTheEnvironmentNamesNone) {
    const Environment environment{};
    EXPECT_EQ(Localization::preferredLanguages(), QStringList());
}
