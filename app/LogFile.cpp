#include "app/LogFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 timesWritten = 100;

bool isPipe(const QString &path) {
    std::error_code none;
    const auto status = std::filesystem::status(path.toStdU16String(), none);
    return std::filesystem::is_fifo(status) || std::filesystem::is_socket(status);
}

void putAside(const QString &path) {
    const QFileInfo info(path);
    // The user has put something else there: leave it alone.
    if (!info.isFile() || info.isSymLink() || info.size() <= LogFile::maximumBytes)
        return;
    std::error_code none;
    std::filesystem::rename(path.toStdU16String(), (path + u".1"_s).toStdU16String(), none);
}

bool isPowerOfTen(qint64 number) {
    while (number % 10 == 0)
        number /= 10;
    return number == 1;
}

} // namespace

QString LogFile::pathBelow(const QString &home) {
    return home + u"/Library/Logs/loquent/palomet.log"_s;
}

std::unique_ptr<QFile> LogFile::open() const {
    if (isPipe(m_path))
        return nullptr;
    putAside(m_path);
    QDir().mkpath(QFileInfo(m_path).path());
    auto file = std::make_unique<QFile>(m_path);
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
    if (!file->open(QFile::WriteOnly | QFile::Append | QFile::Unbuffered, permissions))
        return nullptr;
    return file;
}

void LogFile::note(const QString &line) const {
    const std::scoped_lock lock(m_mutex);
    const auto lines = m_repetition.next(line);
    if (lines.isEmpty() || isPipe(m_path))
        return;
    QFile file(m_path);
    // Unbuffered: the line and its end are one write, which lands whole behind whatever others have appended.
    if (file.open(QFile::WriteOnly | QFile::Append | QFile::ExistingOnly | QFile::Unbuffered))
        file.write(lines.toUtf8());
}

QString LogFile::Repetition::next(const QString &nextLine) {
    if (nextLine != line) {
        const auto before = count();
        line = nextLine;
        times = 1;
        return before + line + u'\n';
    }
    if (++times <= timesWritten)
        return line + u'\n';
    ++unwritten;
    return isPowerOfTen(times) ? count() : QString();
}

QString LogFile::Repetition::count() {
    const auto more = std::exchange(unwritten, 0);
    return more == 0 ? QString() : u"%1 (mais %2 vezes)\n"_s.arg(line, QString::number(more));
}

} // namespace palomet
