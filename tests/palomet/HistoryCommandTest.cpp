#include "tests/palomet/BackendAtItsPort.h"
#include "tests/palomet/ProgramTest.h"

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class HistoryCommandTest : public test::ProgramTest {
protected:
    /// Runs it without a display, a session bus or another Palomet: it needs the backend alone.
    [[nodiscard]] Outcome history(const QStringList &more = {}) {
        environment.remove(u"DISPLAY"_s);
        setVariable("DBUS_SESSION_BUS_ADDRESS", u"unix:path=/nowhere"_s);
        return command(QStringList{u"--history"_s} + more);
    }
};

} // namespace

TEST_F(HistoryCommandTest, ListsWhatTheBackendKeepsInTheUsersLanguage) {
    test::BackendAtItsPort backend;
    backend.http.serve("/history", test::fixture("history/three.json"));
    setVariable("LANGUAGE", u"pt_BR"_s);
    setVariable("LC_ALL", u"pt_BR.UTF-8"_s);
    const auto [exitCode, output, errors] = history();
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(errors, "");
    const auto lines = QString::fromUtf8(output).split(u'\n');
    ASSERT_EQ(lines.size(), 4) << output.toStdString();
    EXPECT_TRUE(lines[0].endsWith(u"  1 resposta · US$ 0,01    How is the site's deploy going?"_s))
        << output.toStdString();
    EXPECT_TRUE(lines[1].endsWith(u"  3 respostas · US$ 0,004  Que horas são?"_s)) << output.toStdString();
    EXPECT_TRUE(lines[2].endsWith(u"  0 respostas · US$ 0,00"_s)) << output.toStdString();
}

TEST_F(HistoryCommandTest, PrintsForProgramsWhatTheBackendKeeps) {
    test::BackendAtItsPort backend;
    backend.http.serve("/history", test::fixture("history/three.json"));
    const auto [exitCode, output, errors] = history({u"--json"_s});
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(errors, "");
    EXPECT_EQ(output.count('\n'), 1);
    EXPECT_EQ(QJsonDocument::fromJson(output), QJsonDocument::fromJson(test::fixture("history/three.json")));
}

TEST_F(HistoryCommandTest, SaysThatThereIsNothingYet) {
    const test::BackendAtItsPort backend;
    setVariable("LANGUAGE", u"en"_s);
    EXPECT_EQ(history(), (Outcome{0, "Nothing yet. What you ask will appear here.\n", ""}));
    EXPECT_EQ(history({u"--json"_s}), (Outcome{0, "[]\n", ""}));
}

TEST_F(HistoryCommandTest, EndsWithOneAndALineWhenNoBackendAnswers) {
    EXPECT_EQ(history(), (Outcome{1, "", "palomet: no backend answers\n"}));
    EXPECT_EQ(history({u"--json"_s}), (Outcome{1, "", "palomet: no backend answers\n"}));
}

TEST_F(HistoryCommandTest, EndsWithOneAndALineWhenWhatAnswersIsNoList) {
    test::BackendAtItsPort backend;
    for (const auto *body : {"", "<html>", "{}", R"([{"conversationId": 5}])"}) {
        backend.http.serve("/history", body);
        const auto [exitCode, output, errors] = history();
        EXPECT_EQ(exitCode, 1) << body;
        EXPECT_EQ(output, "") << body;
        EXPECT_TRUE(errors.startsWith("palomet: the backend's list of conversations cannot be read: ")) << body;
        EXPECT_EQ(errors.count('\n'), 1) << body;
    }
}
