#include "platform/wayland/WaylandKeyboardLayout.h"

#include "tests/platform/wayland/CompositorDouble.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::CompositorDouble;

namespace {

constexpr quint32 keyA = 0;

/// The text of a keymap with these layouts, as `setxkbmap` takes them.
QByteArray keymap(const char *layouts) {
    auto *const context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    const xkb_rule_names names{"evdev", "pc105", layouts, "", ""};
    auto *const made = xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
    char *const text = xkb_keymap_get_as_string(made, XKB_KEYMAP_FORMAT_TEXT_V1);
    const QByteArray copy(text);
    free(text);
    xkb_keymap_unref(made);
    xkb_context_unref(context);
    return copy;
}

} // namespace

TEST(WaylandKeyboardLayout, KnowsWhatTheKeysTypeWithoutAWindow) {
    const CompositorDouble compositor({.keymap = keymap("fr")});
    const WaylandKeyboardLayout layout;
    EXPECT_EQ(layout.character(keyA), u"q"_s);
}

TEST(WaylandKeyboardLayout, TypesNothingWithoutAKeyboardOrACompositor) {
    {
        const CompositorDouble compositor({});
        EXPECT_EQ(WaylandKeyboardLayout().character(keyA), std::nullopt);
    }
    EXPECT_EQ(WaylandKeyboardLayout().character(keyA), std::nullopt);
}

TEST(WaylandKeyboardLayout, TypesNothingByAKeymapThatIsNone) {
    const CompositorDouble compositor({.keymap = "nonsense"});
    EXPECT_EQ(WaylandKeyboardLayout().character(keyA), std::nullopt);
}
