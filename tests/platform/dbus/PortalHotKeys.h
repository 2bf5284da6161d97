#pragma once

#include "platform/dbus/PortalHotKeyGrabber.h"
#include "tests/platform/dbus/FakePortal.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// Hot keys at a portal that the test plays.
class PortalHotKeys : public ::testing::Test {
protected:
    using Occasion = HotKeyGrabber::Occasion;
    static constexpr quint32 option = 0x800;

    void SetUp() override { ASSERT_FALSE(bus.address().isEmpty()); }

    /// Starts the grabber with both hot keys, the first of them registered.
    void begin() {
        grabber = std::make_unique<PortalHotKeyGrabber>(bus.connect(), u"org.palomet.Palomet"_s, layout);
        grabber->onPressed = [this](quint32 id) { pressed.push_back(id); };
        grabber->onRefused = [this](quint32 id) { refused.push_back(id); };
        grabber->onGranted = [this](quint32 id) { granted.push_back(id); };
        grabber->offer(offers, Occasion::Known);
        isTaken = grabber->grab(1, 49, option);
    }
    bool isBound() {
        return eventually([&] { return grabber->trigger(1) == u"Meta+1"_s; });
    }

    PrivateBus bus;
    FixedKeyboardLayout layout{{{40, u"k"_s}}};
    FakePortal portal{bus.connect()};
    std::vector<HotKeyOffer> offers{{1, u"Listen"_s, 49, option}, {2, u"Stop"_s, 53, 0}};
    std::unique_ptr<PortalHotKeyGrabber> grabber;
    std::vector<quint32> pressed;
    std::vector<quint32> refused;
    std::vector<quint32> granted;
    bool isTaken = false;
};

} // namespace palomet::test
