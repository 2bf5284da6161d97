#include "audio/echo/PlainAec3.h"
#include "audio/echo/RestingCanceller.h"

namespace palomet {

using namespace Qt::StringLiterals;

Result<std::unique_ptr<EchoCanceller>> EchoCanceller::create(Mask) {
    auto canceller = echo::createPlainAec3();
    if (!canceller)
        return canceller;
    return std::unique_ptr<EchoCanceller>(
        std::make_unique<echo::RestingCanceller>(std::move(*canceller), echo::aec3Delay));
}

bool EchoCanceller::takesMask() {
    return false;
}

QString EchoCanceller::library() {
    return u"AEC3"_s;
}

} // namespace palomet
