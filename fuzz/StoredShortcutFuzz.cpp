#include "shortcuts/Shortcut.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"

#include <cstdint>
#include <cstdlib>

using namespace palomet;

// A stored text is a shortcut or none. One that is read has a name, and is read again as it is written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto shortcut =
        Shortcut::fromJson(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!shortcut)
        return 0;
    static const test::FixedKeyboardLayout layout({{0, QStringLiteral("a")}, {41, QStringLiteral("ß")}});
    if (shortcut->text(layout).isEmpty() || shortcut->caps(layout).isEmpty())
        std::abort();
    (void)shortcut->menuKey(layout);
    if ((shortcut->flags & Shortcut::option) != 0 && !shortcut->isUsable())
        std::abort();
    const auto again = Shortcut::fromJson(shortcut->toJson());
    if (!again || *again != *shortcut)
        std::abort();
    return 0;
}
