#include "bench/audio/echo/PlainCanceller.h"

#include "audio/echo/PlainAec3.h"

#include <rtc_base/logging.h>

namespace palomet::bench {

std::unique_ptr<EchoCanceller> createPlainCanceller() {
    rtc::LogMessage::LogToDebug(rtc::LS_NONE);
    rtc::LogMessage::SetLogToStderr(false);
    auto canceller = echo::createPlainAec3();
    return canceller ? std::move(*canceller) : nullptr;
}

} // namespace palomet::bench
