#include "localization/StringTable.h"
#include "localization/TextFormat.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

/// Every key of the program.
const QString keys = uR"(
state.waiting state.listening state.hearing state.drafting state.thinking state.speaking state.muted state.offline
pane.now pane.history pane.listening pane.voice pane.brain pane.now.subtitle pane.history.subtitle
pane.listening.subtitle pane.voice.subtitle pane.brain.subtitle
menu.listen menu.stop menu.mute menu.unmute menu.open menu.quit
status.micOn status.micOff
sidebar.version
group.conversation group.settings
notice.microphone notice.microphone.text notice.backend notice.backend.text notice.port notice.port.text
strip.listening strip.say strip.drafted.one strip.drafted.other strip.needsMicrophone strip.mutedInMenu
recorder.none recorder.type recorder.hint recorder.hint.keyAlone recorder.needsModifier
recorder.unknownKey recorder.duplicate
recorder.help.idle recorder.help.recording
shortcut.taken
key.space key.left key.right key.up key.down key.volumeUp key.volumeDown key.mute
sign.hyphen sign.equals sign.leftBracket sign.rightBracket sign.semicolon sign.apostrophe sign.grave sign.backslash
sign.comma sign.period sign.slash sign.lessThan sign.greaterThan sign.plus sign.asterisk sign.number sign.acute
sign.tilde sign.circumflex sign.diaeresis sign.exclamation sign.question sign.colon sign.quotation sign.ampersand
sign.leftParenthesis sign.rightParenthesis sign.underscore sign.dollar sign.percent sign.at sign.leftBrace
sign.rightBrace sign.bar sign.section sign.degree
note.cost.one note.cost.other note.drafting note.microphone note.session note.session.reopening note.waiting
note.interrupt note.offline note.mutedInMenu note.noNameNeeded note.openSettings
now.state now.session now.microphone now.model now.model.note now.voice now.voice.note now.untilHeard
now.untilHeard.note now.untilHeard.typed now.transcription now.transcription.note now.transcription.typed now.empty
now.empty.remembers now.conversation now.thisConversation now.lastAnswer now.typeInstead now.send
heard.title heard.action.accepted heard.action.summoned heard.action.drafted heard.action.acted heard.action.cleared
heard.action.interrupted heard.action.ignored heard.action.echo heard.action.muted
draft.title draft.note
row.you row.tool row.running
history.title history.note history.empty history.answers.one history.answers.other
listening.micBlock listening.echo listening.echo.on listening.echo.off listening.microphone
listening.microphone.hint listening.transcription listening.transcription.hint
listening.transcription.phrases listening.callBlock
listening.directed listening.directed.hint listening.draft listening.draft.hint listening.actionPhrase
listening.actionPhrase.hint listening.draftAge listening.draftAge.hint listening.name listening.name.hint
listening.name.placeholder listening.listenShortcut.hint listening.stopShortcut.hint listening.keysByCommand
listening.timesBlock
listening.endSilence listening.endSilence.hint listening.followUp listening.followUp.hint listening.summon
listening.summon.hint listening.echoGuard listening.echoGuard.hint
voice.voice voice.voice.hint voice.voice.placeholder voice.name voice.name.hint voice.name.placeholder voice.speed
voice.model voice.model.hint voice.offlineBlock voice.macVoice voice.macVoice.hint
brain.sessionBlock brain.model brain.model.hint brain.claude.hint brain.whenDown brain.whenDown.hint
brain.whenDown.value brain.confirmBlock brain.confirm.on brain.confirm.off brain.foldersBlock
brain.workingFolder.hint brain.always brain.addFolder.prompt brain.addFolder.title brain.note
button.newConversation button.addFolder button.remove button.clear button.run button.sample button.openLog
switch.on switch.off
select.applying
text.menu text.undo text.redo text.cut text.copy text.paste text.selectAll
text.undo.keys text.redo.keys text.cut.keys text.copy.keys text.paste.keys text.selectAll.keys
since.now since.minutes since.hours
day.today day.yesterday
device.systemDefault
default.actionPhrase
)"_s;

/// The arguments of the texts that have any, in order: "@" a text, "d" an integer.
const QMap<QString, QString> argumentsOf{
    {u"sidebar.version"_s, u"@"_s},     {u"strip.say"_s, u"@"_s},
    {u"strip.drafted.one"_s, u"d"_s},   {u"strip.drafted.other"_s, u"d"_s},
    {u"recorder.duplicate"_s, u"@@"_s}, {u"shortcut.taken"_s, u"@"_s},
    {u"note.cost.one"_s, u"d"_s},       {u"note.cost.other"_s, u"d"_s},
    {u"note.drafting"_s, u"@"_s},       {u"note.session"_s, u"@"_s},
    {u"now.empty"_s, u"@"_s},           {u"draft.note"_s, u"@"_s},
    {u"history.answers.one"_s, u"d"_s}, {u"history.answers.other"_s, u"d"_s},
    {u"since.minutes"_s, u"d"_s},       {u"since.hours"_s, u"d"_s},
    {u"day.today"_s, u"@"_s},           {u"day.yesterday"_s, u"@"_s},
    {u"notice.port.text"_s, u"@"_s},
};

QSet<QString> toSet(const QStringList &list) {
    return {list.begin(), list.end()};
}

QString pathOf(const QString &language) {
    return u"" PALOMET_SOURCE_DIR "/resources/%1.lproj/strings.json"_s.arg(language);
}

/// What a text asks for, in the order of the arguments; u"?"_s where it passes one over.
QString signatureOf(const QString &text) {
    QString signature;
    for (const auto &directive : directivesOf(text)) {
        if (directive.kind == Directive::Kind::Percent)
            continue;
        while (signature.size() <= directive.argument)
            signature += u'?';
        signature[directive.argument] = directive.kind == Directive::Kind::Text      ? u'@'
                                        : directive.kind == Directive::Kind::Integer ? u'd'
                                                                                     : u'f';
    }
    return signature;
}

/// The keys that a source looks up: in C++ the first argument of `L`, in QML whatever is written in `Words.t`.
QStringList keysIn(const QString &source) {
    static const QRegularExpression inCpp(uR"rx(\bL\(\s*u?"([a-z][A-Za-z.]*)")rx"_s);
    static const QRegularExpression inQml(uR"rx(\bWords\.t\(([^()]*)\))rx"_s);
    static const QRegularExpression literal(uR"rx("([^"]*)")rx"_s);
    QStringList found;
    const auto addAll = [&found](const QRegularExpression &expression, const QString &text) {
        for (auto matches = expression.globalMatch(text); matches.hasNext();)
            found.append(matches.next().captured(1));
    };
    addAll(inCpp, source);
    for (auto calls = inQml.globalMatch(source); calls.hasNext();)
        addAll(literal, calls.next().captured(1));
    return found;
}

class ShippedTables : public ::testing::TestWithParam<const char *> {
protected:
    void SetUp() override {
        auto table = StringTable::read(pathOf(language));
        ASSERT_TRUE(table.isOk()) << table.reason().toStdString();
        m_table = *table;
    }

    const QString language = QString::fromUtf8(GetParam());
    StringTable m_table;
};

} // namespace

TEST_P(ShippedTables, HoldTheKeysOfTheProgramAndNoOthers) {
    const auto expected = toSet(keys.simplified().split(u' '));
    const auto present = toSet(m_table.keys());
    EXPECT_EQ(expected - present, QSet<QString>());
    EXPECT_EQ(present - expected, QSet<QString>());
}

TEST_P(ShippedTables, HoldEachKeyOnce) {
    QFile file(pathOf(language));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    static const QRegularExpression key(uR"rx(^\s*"([^"]+)":)rx"_s, QRegularExpression::MultilineOption);
    auto matches = key.globalMatch(QString::fromUtf8(file.readAll()));
    QSet<QString> seen;
    while (matches.hasNext()) {
        const auto name = matches.next().captured(1);
        EXPECT_FALSE(seen.contains(name)) << name.toStdString();
        seen.insert(name);
    }
    EXPECT_EQ(seen, toSet(m_table.keys()));
}

TEST_P(ShippedTables, HoldNoTextThatIsEmptyOrHasSpaceAroundIt) {
    for (const auto &key : m_table.keys()) {
        const auto text = m_table.text(key).value_or(QString());
        EXPECT_FALSE(text.isEmpty()) << key.toStdString();
        EXPECT_EQ(text, text.simplified()) << key.toStdString();
    }
}

TEST_P(ShippedTables, AskForTheArgumentsThatTheProgramGives) {
    for (const auto &key : m_table.keys()) {
        const auto text = m_table.text(key).value_or(QString());
        EXPECT_EQ(signatureOf(text), argumentsOf.value(key)) << key.toStdString();
        // A u"%"_s that is no directive is a slip of the pen.
        qsizetype directiveSigns = 0;
        for (const auto &directive : directivesOf(text))
            directiveSigns += directive.kind == Directive::Kind::Percent ? 2 : 1;
        EXPECT_EQ(text.count(u'%'), directiveSigns) << key.toStdString();
    }
}

TEST_P(ShippedTables, HoldBothFormsOfEachPlural) {
    const auto stemsOf = [this](const QString &form) {
        QStringList stems = m_table.keys().filter(QRegularExpression(form + u'$'));
        return toSet(stems.replaceInStrings(QRegularExpression(form + u'$'), QString()));
    };
    EXPECT_EQ(stemsOf(u"\\.one"_s), stemsOf(u"\\.other"_s));
}

TEST_P(ShippedTables, HoldEveryKeyThatIsWrittenInTheCode) {
    const auto present = m_table.keys();
    int found = 0;
    for (const char *folder : {"app", "audio", "model", "shortcuts", "ui"}) {
        QDirIterator files(u"" PALOMET_SOURCE_DIR "/"_s + QString::fromUtf8(folder), {u"*.cpp"_s, u"*.h"_s, u"*.qml"_s},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            for (const auto &key : keysIn(QString::fromUtf8(file.readAll()))) {
                ++found;
                // A key that ends with a point is completed where it is used; a plural's form too.
                const auto isStem = key.endsWith(u'.');
                EXPECT_TRUE(isStem ? present.filter(key).size() > 0
                                   : m_table.text(key) || m_table.text(QString(key + ".one"_L1)))
                    << key.toStdString() << " in " << file.fileName().toStdString();
            }
        }
    }
    EXPECT_GT(found, 100) << "they are written in another way now";
}

INSTANTIATE_TEST_SUITE_P(Languages, ShippedTables, ::testing::Values("en", "pt-BR"), [](const auto &parameter) {
    return QString::fromUtf8(parameter.param).remove(u'-').toStdString();
});
