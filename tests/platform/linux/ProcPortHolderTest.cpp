#include "platform/linux/ProcPortHolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

constexpr quint16 port = 4780;
const QByteArray heading =
    "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n";

/// The kernel's tables as the test writes them.
class ProcPortHolderTest : public ::testing::Test {
protected:
    void write(const QString &path, const QByteArray &content) const {
        const auto whole = proc.filePath(path);
        QDir().mkpath(QFileInfo(whole).path());
        QFile file(whole);
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }

    void addSocket(const QString &table, const QByteArray &address, const QByteArray &state, const QByteArray &inode) {
        auto &lines = tables[table];
        lines += "   0: " + address + " 00000000:0000 " + state +
                 " 00000000:00000000 00:00000000 00000000  1000        0 " + inode +
                 " 1 0000000000000000 100 0 0 10 0\n";
        write(u"net/"_s + table, heading + lines);
    }

    void addProcess(qint64 id, const QByteArray &name, qint64 parent, const QByteArray &inode = {}) const {
        const auto folder = QString::number(id);
        write(folder + u"/stat"_s,
              QByteArray::number(id) + " (" + name + ") S " + QByteArray::number(parent) + " 1 1\n");
        QDir().mkpath(proc.filePath(folder + u"/fd"_s));
        if (!inode.isEmpty())
            QFile::link(QString::fromLatin1("socket:[" + inode + "]"), proc.filePath(folder + u"/fd/5"_s));
    }

    [[nodiscard]] std::optional<PortHolder> holder() const { return procPortHolder(port, proc.path()); }

    QTemporaryDir proc;
    QMap<QString, QByteArray> tables;
};

} // namespace

TEST_F(ProcPortHolderTest, FindsNobodyWhereNobodyListens) {
    EXPECT_FALSE(holder());
    addSocket(u"tcp"_s, "0100007F:12AD", "0A", "1");
    addSocket(u"tcp"_s, "0100007F:12AC", "01", "2");
    addSocket(u"tcp"_s, "0100007F:A012", "0A", "3");
    EXPECT_FALSE(holder());
}

TEST_F(ProcPortHolderTest, NamesWhoListensAndItsParents) {
    addSocket(u"tcp"_s, "0100007F:12AC", "0A", "42");
    addProcess(1, "systemd", 0);
    addProcess(10, "palomet", 1, "41");
    addProcess(11, "a (b) c", 10, "42");
    ASSERT_TRUE(holder());
    EXPECT_EQ(holder()->processId, 11);
    EXPECT_EQ(holder()->lineage, (QStringList{u"a (b) c"_s, u"palomet"_s, u"systemd"_s}));
}

TEST_F(ProcPortHolderTest, SeesAListenerOnEveryAddressToo) {
    addSocket(u"tcp6"_s, "00000000000000000000000000000000:12AC", "0A", "42");
    addProcess(11, "nc", 1, "42");
    ASSERT_TRUE(holder());
    EXPECT_EQ(holder()->processId, 11);
}

TEST_F(ProcPortHolderTest, DoesNotNameTheProgramOfAnotherUser) {
    addSocket(u"tcp"_s, "00000000:12AC", "0A", "42");
    addProcess(11, "nc", 1);
    ASSERT_TRUE(holder());
    EXPECT_EQ(holder()->processId, 0);
    EXPECT_TRUE(holder()->lineage.isEmpty());
}

TEST_F(ProcPortHolderTest, PassesOverLinesThatAreNone) {
    write(u"net/tcp"_s, heading + "\n:12AC\nx :12AC y 0A\n");
    EXPECT_FALSE(holder());
}
