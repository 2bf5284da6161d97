#pragma once

#include <QByteArray>
#include <QFile>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// The bytes of a file below tests/fixtures.
[[nodiscard]] inline QByteArray fixture(const char *name) {
    QFile file(u"" PALOMET_SOURCE_DIR "/tests/fixtures/"_s + QString::fromUtf8(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no fixture %s", name);
    return file.readAll();
}

} // namespace palomet::test
