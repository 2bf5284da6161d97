#pragma once

#include <functional>

namespace palomet {

/// Calls back when the connection to the compositor is lost, once, on the main thread. The toolkit would end the
/// program for that, and without an exit; now `onLoss` has to end it.
void onCompositorLoss(std::function<void()> onLoss);

} // namespace palomet
