#include "localization/Languages.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

QStringList tags(const char *names) {
    return languageTags(QString::fromUtf8(names));
}

QString best(const QStringList &preferred) {
    return bestLanguage(preferred, {u"en"_s, u"pt-BR"_s});
}

} // namespace

TEST(LanguageTags, KeepTheOrderOfTheNames) {
    EXPECT_EQ(tags("pt_BR:en_US"), QStringList({u"pt-BR"_s, u"en-US"_s}));
    EXPECT_EQ(tags("en:pt:en"), QStringList({u"en"_s, u"pt"_s, u"en"_s}));
}

TEST(LanguageTags, LeaveOutTheCodesetAndTheModifier) {
    EXPECT_EQ(tags("pt_BR.UTF-8@euro"), QStringList({u"pt-BR"_s}));
    EXPECT_EQ(tags("pt_BR.ISO8859-1"), QStringList({u"pt-BR"_s}));
    EXPECT_EQ(tags("de@euro"), QStringList({u"de"_s}));
}

TEST(LanguageTags, TakeAScriptFromTheModifierOrTheName) {
    EXPECT_EQ(tags("sr_RS@latin:sr_RS.UTF-8@cyrillic"), QStringList({u"sr-Latn-RS"_s, u"sr-Cyrl-RS"_s}));
    EXPECT_EQ(tags("zh-hant-tw"), QStringList({u"zh-Hant-TW"_s}));
}

TEST(LanguageTags, OfTheLocalesWithoutALanguageAreEnglish) {
    for (const char *name : {"C", "POSIX", "C.UTF-8", "POSIX@x"})
        EXPECT_EQ(tags(name), QStringList({u"en"_s})) << name;
}

TEST(LanguageTags, WriteLanguageScriptAndTerritoryInTheirUsualCase) {
    EXPECT_EQ(tags("PT_br:es_419"), QStringList({u"pt-BR"_s, u"es-419"_s}));
}

TEST(LanguageTags, OfWhatNamesNoLanguageAreNone) {
    for (const char *name :
         {"", ":", "::", "x", "portuguese", "../../etc/passwd", "pt_", "pt_BRA", "c", "pt BR", "çã", "12"})
        EXPECT_EQ(tags(name), QStringList()) << name;
    EXPECT_EQ(languageTags(QString(1'000'000, u'a')), QStringList());
    EXPECT_EQ(tags(":nonsense:pt_BR:"), QStringList({u"pt-BR"_s}));
}

TEST(BestLanguage, ServesEveryKindOfPortugueseWithBrazilian) {
    for (const char *tag : {"pt", "pt-BR", "pt-PT", "pt-AO", "PT-pt"})
        EXPECT_EQ(best({QString::fromUtf8(tag)}), u"pt-BR"_s) << tag;
}

TEST(BestLanguage, ServesEveryKindOfEnglishWithEnglish) {
    for (const char *tag : {"en", "en-US", "en-GB", "en-IN"})
        EXPECT_EQ(best({QString::fromUtf8(tag)}), u"en"_s) << tag;
}

TEST(BestLanguage, IsTheFirstWantedOneThatThereIs) {
    EXPECT_EQ(best({u"pt-BR"_s, u"en-US"_s}), u"pt-BR"_s);
    EXPECT_EQ(best({u"en-US"_s, u"pt-BR"_s}), u"en"_s);
    EXPECT_EQ(best({u"ja"_s, u"pt-PT"_s, u"en"_s}), u"pt-BR"_s);
}

TEST(BestLanguage, IsNoneWhenNothingServes) {
    EXPECT_EQ(best({u"ja"_s}), QString());
    EXPECT_EQ(best({}), QString());
    EXPECT_EQ(best({u""_s, u"not a tag"_s, QString(10'000, u'x')}), QString());
    EXPECT_EQ(bestLanguage({u"pt-BR"_s}, {}), QString());
}

TEST(BestLanguage, PassesOverFoldersThatNameNoLanguage) {
    EXPECT_EQ(bestLanguage({u"pt-BR"_s}, {u""_s, u"!!"_s, u"Base"_s, u"pt_BR"_s}), u"pt_BR"_s);
    EXPECT_EQ(bestLanguage({u"en"_s}, {u""_s, u"!!"_s, u"Base"_s}), QString());
}
