#pragma once

#include <QString>

#include <memory>

class QFile;

namespace palomet {

/// The one log file of the whole application: the backend's output and the front end's own lines, which never tear each
/// other, for every writer appends whole lines by single writes. Any thread.
class LogFile {
public:
    explicit LogFile(QString path)
        : m_path(std::move(path)) {}

    /// Where it lies for the user whose home this is.
    [[nodiscard]] static QString pathBelow(const QString &home);

    [[nodiscard]] const QString &path() const { return m_path; }

    /// Opens it for appending, after making its folder and the file itself where they are missing; null when that
    /// cannot be done.
    [[nodiscard]] std::unique_ptr<QFile> open() const;

    /// Appends one line. Dropped without a word when there is no such file or it cannot be written.
    void note(const QString &line) const;

private:
    QString m_path;
};

} // namespace palomet
