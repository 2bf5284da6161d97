#pragma once

#include "shortcuts/Shortcut.h"

namespace palomet {

/// A shortcut in words, "Ctrl + Alt + Comma", for whoever hears it: signs are not read out, or not understood. Keys
/// that have a word printed on them keep it in every language.
[[nodiscard]] QString spokenShortcut(const Shortcut &shortcut, const KeyboardLayout &layout);

} // namespace palomet
