#pragma once

#include "shortcuts/HotKeyGrabber.h"

#include <map>
#include <set>

namespace palomet::test {

/// A desktop that grants every key, or none.
class FakeHotKeyGrabber final : public HotKeyGrabber {
public:
    struct Held {
        quint32 keyCode;
        quint32 modifiers;

        bool operator==(const Held &) const = default;
    };

    bool grab(quint32 id, quint32 keyCode, quint32 modifiers) override {
        if (refuses)
            return false;
        held[id] = {keyCode, modifiers};
        ++grabs;
        return true;
    }
    void release(quint32 id) override {
        held.erase(id);
        ++releases;
    }
    void offer(const std::vector<HotKeyOffer> &offers, Occasion reason) override {
        offered = offers;
        occasions.push_back(reason);
    }
    [[nodiscard]] bool isPossible() const override { return isGrantable; }
    [[nodiscard]] bool isKnown(quint32 id) const override { return !pending.contains(id); }

    [[nodiscard]] QString trigger(quint32 id) const override {
        const auto found = triggers.find(id);
        return found == triggers.end() ? QString() : found->second;
    }

    std::map<quint32, Held> held;
    std::map<quint32, QString> triggers; ///< What this desktop calls the keys that it granted.
    std::vector<HotKeyOffer> offered;
    std::vector<Occasion> occasions; ///< Those of the offers, in their order.
    std::set<quint32> pending;       ///< Ids whose answer is still to come.
    bool isGrantable = true;
    bool refuses = false;
    int grabs = 0;
    int releases = 0;
};

} // namespace palomet::test
