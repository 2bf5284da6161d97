#pragma once

#include "model/Documents.h"
#include "model/Format.h"
#include "model/PalometModel.h"
#include "tests/support/Eventually.h"
#include "tests/support/Fixture.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace palomet::test {

using namespace Qt::StringLiterals;

class Allowed final : public MicrophonePermission {
public:
    [[nodiscard]] MicrophoneStatus status() const override { return MicrophoneStatus::Authorized; }
    void request(std::function<void()> answered) override { answered(); }
};

/// A row of a conversation, of no time.
[[nodiscard]] inline Snapshot::Row row(const char *role, const QString &text) {
    Snapshot::Row row;
    row.role = QString::fromUtf8(role);
    row.text = text;
    return row;
}

/// Whose numbers and hours the tests of the screens show, at the hour of ManualScheduler's clock: 2027-01-15, 08:00
/// UTC.
[[nodiscard]] inline format::Region regionOf(const QString &timeZone) {
    return {.numbers = u"en"_s, .dates = u"en"_s, .timeZone = timeZone, .clock = [] {
                return std::chrono::system_clock::time_point(std::chrono::seconds{1'800'000'000});
            }};
}

/// While this lives, the user is in another time zone than UTC.
class Journey {
public:
    explicit Journey(const QString &timeZone) { format::load(regionOf(timeZone)); }
    ~Journey() { format::load(regionOf(u"UTC"_s)); }
    Journey(const Journey &) = delete;
    Journey &operator=(const Journey &) = delete;
};

/// A model that shows what the test gives it, a backend that notes what it is told, and a clock that the test moves.
class UiTest : public ::testing::Test {
protected:
    UiTest() {
        m_backend.serve("/settings", "{}");
        m_backend.serve("/state", "{}");
    }

    [[nodiscard]] PalometModel &model() { return m_model; }
    [[nodiscard]] ScriptedBackend &backend() { return m_backend; }
    [[nodiscard]] ManualScheduler &scheduler() { return m_scheduler; }

    /// The state document that has everything.
    [[nodiscard]] static Snapshot full() { return *decodeSnapshot(fixture("state/full.json")); }

    void setSnapshot(Snapshot snapshot) { m_model.setSnapshot(std::make_shared<const Snapshot>(std::move(snapshot))); }

    template <typename Change>
    void setFull(Change change) {
        auto snapshot = full();
        change(snapshot);
        setSnapshot(std::move(snapshot));
    }
    void setFull() { setSnapshot(full()); }

    template <typename Change>
    void setState(const char *state, Change change) {
        Snapshot snapshot;
        snapshot.state = QString::fromUtf8(state);
        change(snapshot);
        setSnapshot(std::move(snapshot));
    }
    void setState(const char *state) {
        setState(state, [](Snapshot &) {});
    }

    /// Waits for the command of that target and takes its body.
    [[nodiscard]] QByteArray told(const QByteArray &target) {
        const int before = m_told[target]++;
        EXPECT_TRUE(eventually([&] { return m_backend.count(target) > before; })) << target.toStdString();
        const auto exchanges = m_backend.exchanges(target);
        return static_cast<int>(exchanges.size()) > before ? exchanges[static_cast<std::size_t>(before)]->body()
                                                           : QByteArray();
    }

    /// The next change of a setting, as it was sent.
    [[nodiscard]] QByteArray toldSetting() { return told("/settings"); }

private:
    ManualScheduler m_scheduler;
    Allowed m_permission;
    ScriptedBackend m_backend;
    PalometModel m_model{m_scheduler, m_permission, m_backend.base()};
    std::map<QByteArray, int> m_told;
};

} // namespace palomet::test
