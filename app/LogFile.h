#pragma once

#include <QString>

#include <memory>
#include <mutex>

class QFile;

namespace palomet {

/// The one log file of the whole application: the backend's output and the front end's own lines, which never tear each
/// other, for every writer appends whole lines by single writes. Any thread.
class LogFile {
public:
    explicit LogFile(QString path)
        : m_path(std::move(path)) {}

    /// The log's path for the user whose home this is.
    [[nodiscard]] static QString pathBelow(const QString &home);

    [[nodiscard]] const QString &path() const { return m_path; }

    /// A longer log is put aside when it is opened: as "….log.1", in the place of an older one.
    static constexpr qint64 maximumBytes = qint64{4} * 1024 * 1024;

    /// Opens it for appending, after making its folder and the file itself where they are missing; null when that
    /// cannot be done, or when it is a pipe or a socket, which would hold up whoever opens it.
    [[nodiscard]] std::unique_ptr<QFile> open() const;

    /// Appends one line. Dropped without a word when there is no such file or it cannot be written. One that comes more
    /// than a hundred times in a row is counted from then on: it comes again with the number of times that it did not,
    /// when another one comes, and each time that it has come ten times as often as the last time that it was written.
    void note(const QString &line) const;

private:
    /// The same line, over and over.
    struct Repetition {
        QString line;
        qint64 times = 0;
        qint64 unwritten = 0;

        /// What is to be written for one more line; none, or lines that end as lines do.
        [[nodiscard]] QString next(const QString &line);
        [[nodiscard]] QString count();
    };

    const QString m_path;
    mutable std::mutex m_mutex;
    mutable Repetition m_repetition;
};

} // namespace palomet
