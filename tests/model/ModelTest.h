#pragma once

#include "model/PalometModel.h"
#include "tests/support/Eventually.h"
#include "tests/support/Fixture.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace palomet::test {

class FakePermission final : public MicrophonePermission {
public:
    [[nodiscard]] MicrophoneStatus status() const override { return m_status; }
    void request(std::function<void()>) override { ADD_FAILURE() << "the model asks for no permission"; }

    MicrophoneStatus m_status = MicrophoneStatus::Authorized;
};

/// Counts how often the model gives a signal.
class SignalCount {
public:
    SignalCount(PalometModel *model, void (PalometModel::*signal)()) {
        QObject::connect(model, signal, &m_context, [this] { ++m_count; });
    }
    [[nodiscard]] int count() const { return m_count; }

private:
    int m_count = 0;
    QObject m_context;
};

/// A model, a backend that answers with the fixtures, and a clock that the test moves.
class ModelTest : public ::testing::Test {
protected:
    using Exchange = ScriptedBackend::ExchangePointer;

    ModelTest() {
        m_backend.serve("/state", fixture("state/full.json"));
        m_backend.serve("/history", fixture("history/three.json"));
        m_backend.serve("/options", fixture("options/full.json"));
        m_backend.on("/events", [](const Exchange &exchange) { exchange->beginEvents(); });
    }

    /// Starts the model and waits until it holds everything that the backend has to say.
    void startAndSettle() {
        m_model.start();
        m_scheduler.advance(std::chrono::milliseconds{100});
        ASSERT_TRUE(eventually([this] {
            return m_model.snapshot() && !m_model.history().empty() && m_model.options() && m_backend.last("/events");
        }));
    }

    /// Sends an event, and another after it whose arrival shows that the first was handled.
    void send(const QByteArray &name, const QByteArray &data) {
        m_backend.last("/events")->event(name, data);
        m_mark += 1;
        m_backend.last("/events")->event("outLevel", QByteArray::number(m_mark));
        ASSERT_TRUE(eventually([this] { return m_model.outLevel() == m_mark; }));
    }

    /// Waits until `count` requests of that target have come.
    [[nodiscard]] bool hasCome(const QByteArray &target, int count = 1) {
        return eventually([&, count] { return m_backend.count(target) >= count; });
    }

    /// Lets the clock run, twenty times as fast as the real one, until `holds`.
    template <typename Condition>
    [[nodiscard]] bool runsUntil(Condition holds) {
        QElapsedTimer real;
        real.start();
        std::chrono::milliseconds run{0};
        return eventually([&] {
            const std::chrono::milliseconds due(real.elapsed() * 20);
            m_scheduler.advance(due - run);
            run = due;
            return holds();
        });
    }

    /// A state document that says it is in `state`.
    [[nodiscard]] static QByteArray stateDocument(const QByteArray &state) {
        return fixture("state/bare.json").replace("\"waiting\"", '"' + state + '"');
    }

    ManualScheduler m_scheduler;
    FakePermission m_permission;
    ScriptedBackend m_backend;
    PalometModel m_model{m_scheduler, m_permission, m_backend.base()};
    double m_mark = 1000;
};

} // namespace palomet::test
