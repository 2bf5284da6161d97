#include "platform/linux/Terminal.h"

#include <unistd.h>

namespace palomet {

bool isTerminal(std::FILE *stream) {
    return ::isatty(::fileno(stream)) == 1;
}

} // namespace palomet
