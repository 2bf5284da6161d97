#pragma once

#include "base/Callback.h"

#include <QString>
#include <QtGlobal>

#include <vector>

namespace palomet {

/// A hot key that may be registered at some time, in words for a desktop that asks its user.
struct HotKeyOffer {
    quint32 id;
    QString description;
    quint32 keyCode;
    quint32 modifiers; ///< Bits of `HotKeyGrabber::Modifier`.

    bool operator==(const HotKeyOffer &) const = default;
};

/// Port: the desktop's way to be told of a key that is pressed in whatever application. Main thread only.
class HotKeyGrabber {
public:
    /// Bits of a combination's modifiers.
    enum Modifier : quint32 { Command = 0x100, Shift = 0x200, Option = 0x800, Control = 0x1000 };

    HotKeyGrabber() = default;
    HotKeyGrabber(const HotKeyGrabber &) = delete;
    HotKeyGrabber &operator=(const HotKeyGrabber &) = delete;
    virtual ~HotKeyGrabber() = default;

    /// Why hot keys are named: they are as they were known, or the user has just chosen one of them.
    enum class Occasion { Known, Chosen };

    /// Names every hot key that may be registered, before the first is and whenever one of them becomes another. A
    /// desktop whose user decides is asked for those that it does not know, and for all of them when the user has just
    /// chosen, be it the same again; elsewhere nothing happens.
    virtual void offer(const std::vector<HotKeyOffer> &offers, Occasion occasion) {
        static_cast<void>(offers);
        static_cast<void>(occasion);
    }

    /// Whether the desktop grants keys to programs at all, as far as is known.
    [[nodiscard]] virtual bool isPossible() const { return true; }

    /// Takes a combination: a virtual key code and bits of `Modifier`. False when it is refused, another program
    /// holding it for instance. Where the desktop answers later, true while the answer is pending; a refusal is then
    /// told by `onRefused`.
    [[nodiscard]] virtual bool grab(quint32 id, quint32 keyCode, quint32 modifiers) = 0;

    /// What the desktop calls the keys that its user chose for a hot key; empty where the combination is what was asked
    /// for.
    [[nodiscard]] virtual QString trigger(quint32 id) const {
        static_cast<void>(id);
        return {};
    }

    /// Whether the keys of a combination that was taken are known: not while the desktop's answer is pending, nor where
    /// it keeps them to itself.
    [[nodiscard]] virtual bool isKnown(quint32 id) const {
        static_cast<void>(id);
        return true;
    }

    /// Gives it back, at the latest when the event loop turns. Until then the same combination can be grabbed again and
    /// was held without a gap. Everything is given back when the program ends, however it ends.
    virtual void release(quint32 id) = 0;

    /// A combination was pressed, once however long it is held. Called from the event loop.
    Callback<void(quint32 id)> onPressed;

    /// A combination that seemed taken was refused after all.
    Callback<void(quint32 id)> onRefused;

    /// The desktop's user has chosen keys for a hot key that is not held, perhaps after a refusal: it can be grabbed.
    Callback<void(quint32 id)> onGranted;

    /// The desktop's user has chosen other keys, or they are not known any more: `trigger` tells. Or what `isPossible`
    /// tells is otherwise.
    Callback<void()> onTriggersChanged;
};

/// Where a desktop has no way: everything is refused, and the command line is left.
class NoHotKeyGrabber final : public HotKeyGrabber {
public:
    [[nodiscard]] bool isPossible() const override { return false; }
    [[nodiscard]] bool grab(quint32, quint32, quint32) override { return false; }
    void release(quint32) override {}
};

} // namespace palomet
