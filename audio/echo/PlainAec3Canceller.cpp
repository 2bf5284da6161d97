#include "audio/echo/PlainAec3.h"
#include "audio/echo/RestingCanceller.h"

namespace palomet {

Result<std::unique_ptr<EchoCanceller>> EchoCanceller::create() {
    auto canceller = echo::createPlainAec3();
    if (!canceller)
        return canceller;
    return std::unique_ptr<EchoCanceller>(
        std::make_unique<echo::RestingCanceller>(std::move(*canceller), echo::aec3Delay));
}

QString EchoCanceller::library() {
    return QStringLiteral("AEC3");
}

} // namespace palomet
