#include "platform/sway/SwayWindowManagement.h"

#include "tests/support/Eventually.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

/// What is asked where sway does not do it.
class OtherManagement final : public WindowManagement {
public:
    struct Calls {
        std::vector<quintptr> introduced;
        std::vector<quintptr> activated;
    };

    explicit OtherManagement(Calls &calls)
        : m_calls(calls) {}

    void introduce(quintptr window) override { m_calls.introduced.push_back(window); }
    [[nodiscard]] bool activate(quintptr window) override {
        m_calls.activated.push_back(window);
        return true;
    }

private:
    Calls &m_calls;
};

QByteArray message(const QByteArray &text, quint32 kind = 0) {
    const auto length = static_cast<quint32>(text.size());
    QByteArray bytes("i3-ipc");
    for (const quint32 number : {length, kind})
        bytes.append(reinterpret_cast<const char *>(&number), sizeof number);
    return bytes + text;
}

const QByteArray done = message("[{\"success\": true}]");
const QByteArray noSuchWindow = message("[{\"success\": false, \"error\": \"No matching node.\"}]");

/// Beside a sway that the test plays.
class SwayWindowManagementTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(server.listen(folder.filePath(u"sway.sock"_s))); }

    /// What the program says to sway, once it has said that much.
    QByteArray said(qsizetype length) {
        EXPECT_TRUE(eventually([this] { return (client = client ? client : server.nextPendingConnection()); }));
        EXPECT_TRUE(eventually([&] { return client->bytesAvailable() >= length; }));
        return client->readAll();
    }

    void answer(const QByteArray &bytes) {
        client->write(bytes);
        client->flush();
    }

    bool hasHungUp() {
        return eventually([this] { return client->state() == QLocalSocket::UnconnectedState; });
    }

    QTemporaryDir folder;
    QLocalServer server;
    QLocalSocket *client = nullptr;
    OtherManagement::Calls other;
    SwayWindowManagement management{folder.filePath(u"sway.sock"_s), SwayWindowManagement::Kind::XWayland,
                                    std::make_unique<OtherManagement>(other)};
    const QByteArray question = message("[id=4194311] focus");
};

} // namespace

TEST_F(SwayWindowManagementTest, TurnsToTheWindowByItsNumber) {
    EXPECT_TRUE(management.activate(4194311));
    EXPECT_EQ(said(question.size()), question);
    answer(done);
    EXPECT_TRUE(hasHungUp());
    EXPECT_TRUE(other.activated.empty());
}

TEST_F(SwayWindowManagementTest, TurnsToAWindowOfWaylandByItsProcessAndTitle) {
    SwayWindowManagement native(folder.filePath(u"sway.sock"_s), SwayWindowManagement::Kind::Wayland,
                                std::make_unique<OtherManagement>(other));
    EXPECT_TRUE(native.activate(1));
    const auto expected =
        message("[pid=" + QByteArray::number(QCoreApplication::applicationPid()) + " title=\"^Palomet$\"] focus");
    EXPECT_EQ(said(expected.size()), expected);
    answer(done);
    EXPECT_TRUE(hasHungUp());
}

TEST_F(SwayWindowManagementTest, TakesAnAnswerThatComesInPieces) {
    EXPECT_TRUE(management.activate(4194311));
    said(question.size());
    for (const char byte : noSuchWindow) {
        EXPECT_TRUE(other.activated.empty());
        answer(QByteArray(1, byte));
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(hasHungUp());
    EXPECT_EQ(other.activated, std::vector<quintptr>{4194311});
}

TEST_F(SwayWindowManagementTest, AsksAsOtherwiseForAWindowThatSwayDoesNotKnow) {
    EXPECT_TRUE(management.activate(4194311));
    said(question.size());
    answer(noSuchWindow);
    EXPECT_TRUE(eventually([this] { return !other.activated.empty(); }));
    EXPECT_EQ(other.activated, std::vector<quintptr>{4194311});
}

TEST_F(SwayWindowManagementTest, AsksAsOtherwiseWhenSwayHasGone) {
    server.close();
    EXPECT_TRUE(management.activate(4194311));
    EXPECT_TRUE(eventually([this] { return !other.activated.empty(); }));
    EXPECT_EQ(other.activated, std::vector<quintptr>{4194311});
}

TEST_F(SwayWindowManagementTest, AsksAsOtherwiseWhenSwayGoesBeforeItsAnswer) {
    EXPECT_TRUE(management.activate(4194311));
    said(question.size());
    client->abort();
    EXPECT_TRUE(eventually([this] { return !other.activated.empty(); }));
    EXPECT_EQ(other.activated, std::vector<quintptr>{4194311});
}

TEST_F(SwayWindowManagementTest, AsksAsOtherwiseWhenTheAnswerIsNonsense) {
    const QByteArray endless = message("").replace(6, 4, QByteArray(4, '\x7f'));
    for (const auto &nonsense : {message("[]"), message("{"), message("[{}]"), message("[{\"success\": true}]", 4),
                                 endless, QByteArray("HTTP/1.1 400 Bad Request")}) {
        other.activated.clear();
        EXPECT_TRUE(management.activate(4194311));
        client = nullptr;
        said(question.size());
        answer(nonsense);
        EXPECT_TRUE(eventually([this] { return !other.activated.empty(); })) << nonsense.toStdString();
    }
}

TEST_F(SwayWindowManagementTest, AsksForTheLastWindowOnlyWhenThereAreSeveral) {
    EXPECT_TRUE(management.activate(7));
    EXPECT_TRUE(management.activate(4194311));
    // The first has hung up without a word.
    EXPECT_TRUE(eventually([&] {
        while (auto *next = server.nextPendingConnection())
            client = next;
        return client && client->bytesAvailable() >= question.size();
    }));
    EXPECT_EQ(client->readAll(), question);
    answer(noSuchWindow);
    EXPECT_TRUE(eventually([this] { return !other.activated.empty(); }));
    EXPECT_EQ(other.activated, std::vector<quintptr>{4194311});
}

TEST_F(SwayWindowManagementTest, LeavesTheIntroductionOfAWindowToTheOther) {
    management.introduce(5);
    EXPECT_EQ(other.introduced, std::vector<quintptr>{5});
}
