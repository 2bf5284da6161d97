#include "command/fail.h"

#include <cstdio>

namespace palomet {

int fail(const QString &reason, int exitCode) {
    std::fprintf(stderr, "palomet: %s\n", reason.toLocal8Bit().constData());
    return exitCode;
}

} // namespace palomet
