#include "audio/echo/PlainAec3.h"

namespace palomet {

Result<std::unique_ptr<EchoCanceller>> EchoCanceller::create() {
    return echo::createPlainAec3();
}

} // namespace palomet
