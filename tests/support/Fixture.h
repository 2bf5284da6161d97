#pragma once

#include <QByteArray>
#include <QFile>

namespace palomet::test {

/// The bytes of a file below tests/fixtures.
[[nodiscard]] inline QByteArray fixture(const char *name) {
    QFile file(QStringLiteral(PALOMET_SOURCE_DIR "/tests/fixtures/") + QString::fromUtf8(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no fixture %s", name);
    return file.readAll();
}

} // namespace palomet::test
