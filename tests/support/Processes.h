#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// Facts that the system tells of processes, and of this one's own environment.
namespace palomet::test {

inline constexpr qint64 mebibyte = 1024 * 1024;

inline QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

inline QByteArray processFile(qint64 process, const QString &name) {
    return contentOf(QStringLiteral("/proc/%1/%2").arg(process).arg(name));
}

/// Ended, whether or not somebody has taken notice.
inline bool hasEnded(qint64 process) {
    const auto stat = processFile(process, QStringLiteral("stat"));
    const auto name = stat.lastIndexOf(')');
    return name < 0 || stat.mid(name + 2, 1) == "Z" || stat.mid(name + 2, 1) == "X";
}

/// The value of a line such as "SigBlk:" of its status.
inline QByteArray statusOf(qint64 process, const QByteArray &key) {
    for (const auto &line : processFile(process, QStringLiteral("status")).split('\n')) {
        if (line.startsWith(key + ':'))
            return line.mid(key.size() + 1).trimmed();
    }
    return {};
}

/// The memory that a process holds.
inline qint64 residentBytes(qint64 process) {
    return statusOf(process, "VmRSS").chopped(3).trimmed().toLongLong() * 1024;
}

/// The open descriptors with what they stand for, as "1 -> /dev/null".
inline QStringList descriptorsOf(qint64 process) {
    const QDir folder(QStringLiteral("/proc/%1/fd").arg(process));
    QStringList found;
    for (const auto &name : folder.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot))
        found.append(name + QStringLiteral(" -> ") + QFile::symLinkTarget(folder.filePath(name)));
    return found;
}

/// The processes whose numbers follow a word at the start of a line, in the order of the lines.
inline QList<qint64> processesNamed(const QByteArray &word, const QByteArray &log) {
    QList<qint64> found;
    const auto lines = log.split('\n');
    // The last one has not ended yet.
    for (qsizetype index = 0; index + 1 < lines.size(); ++index) {
        if (lines[index].startsWith(word + ' '))
            found.append(lines[index].mid(word.size() + 1).toLongLong());
    }
    return found;
}

/// A variable of this process's environment, for as long as this lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char *name, const QByteArray &value)
        : m_name(name)
        , m_wasSet(qEnvironmentVariableIsSet(name))
        , m_before(qgetenv(name)) {
        qputenv(name, value);
    }
    /// No value: not set.
    explicit EnvironmentVariable(const char *name)
        : EnvironmentVariable(name, {}) {
        qunsetenv(name);
    }
    EnvironmentVariable(const EnvironmentVariable &) = delete;
    EnvironmentVariable &operator=(const EnvironmentVariable &) = delete;
    ~EnvironmentVariable() {
        if (m_wasSet)
            qputenv(m_name, m_before);
        else
            qunsetenv(m_name);
    }

private:
    const char *m_name;
    bool m_wasSet;
    QByteArray m_before;
};

} // namespace palomet::test
