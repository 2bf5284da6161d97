#pragma once

#include "shortcuts/HotKeyGrabber.h"
#include "shortcuts/KeyboardLayout.h"

namespace palomet {

/// "CTRL+ALT+space", as a trigger is proposed to the portal; empty for a key without a modifier, which nobody should
/// lose everywhere. The layout names the keys that type something.
[[nodiscard]] QString preferredTrigger(const HotKeyOffer &offer, const KeyboardLayout &layout);

} // namespace palomet
