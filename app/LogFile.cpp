#include "app/LogFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace palomet {

using namespace Qt::StringLiterals;

QString LogFile::pathBelow(const QString &home) {
    return home + u"/Library/Logs/loquent/palomet.log"_s;
}

std::unique_ptr<QFile> LogFile::open() const {
    QDir().mkpath(QFileInfo(m_path).path());
    auto file = std::make_unique<QFile>(m_path);
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
    if (!file->open(QFile::WriteOnly | QFile::Append | QFile::Unbuffered, permissions))
        return nullptr;
    return file;
}

void LogFile::note(const QString &line) const {
    QFile file(m_path);
    // Unbuffered: the line and its end are one write, which lands whole behind whatever others have appended.
    if (file.open(QFile::WriteOnly | QFile::Append | QFile::ExistingOnly | QFile::Unbuffered))
        file.write(line.toUtf8() + '\n');
}

} // namespace palomet
