#pragma once

#include "shortcuts/Shortcut.h"

namespace palomet {

/// A shortcut in words, "Ctrl + Alt + Comma", for a screen reader, which skips signs or reads them unintelligibly. A
/// word that is printed on a key is the same in every language.
[[nodiscard]] QString spokenShortcut(const Shortcut &shortcut, const KeyboardLayout &layout);

} // namespace palomet
