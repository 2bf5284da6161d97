#include "bench/audio/echo/PlainCanceller.h"

namespace palomet::bench {

std::unique_ptr<EchoCanceller> createPlainCanceller() {
    return nullptr;
}

} // namespace palomet::bench
