#pragma once

#include <QByteArrayList>

namespace palomet::test {

/// The lines of a log in which the program says that it ends.
inline QByteArrayList farewellIn(const QByteArray &log) {
    QByteArrayList found;
    for (const auto &line : log.split('\n')) {
        if (line.startsWith("saindo: "))
            found.append(line);
    }
    return found;
}

} // namespace palomet::test
