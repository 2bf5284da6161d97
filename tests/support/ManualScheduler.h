#pragma once

#include "base/Scheduler.h"

#include <algorithm>
#include <vector>

namespace palomet::test {

/// A clock that stands still until the test moves it, and then runs in order what has fallen due.
class ManualScheduler final : public Scheduler {
public:
    [[nodiscard]] std::chrono::system_clock::time_point now() const override { return m_now; }
    void setNow(std::chrono::system_clock::time_point now) { m_now = now; }

    [[nodiscard]] Handle after(std::chrono::milliseconds delay, std::function<void()> action) override {
        return add(delay, std::chrono::milliseconds{0}, std::move(action));
    }
    [[nodiscard]] Handle every(std::chrono::milliseconds period, std::function<void()> action) override {
        return add(period, period, std::move(action));
    }

    /// Moves the clock and runs everything that falls due on the way, each at its own time.
    void advance(std::chrono::milliseconds by) {
        const auto until = m_now + by;
        for (;;) {
            const auto next = std::min_element(m_pending.begin(), m_pending.end(), [](auto *a, auto *b) {
                return a->due != b->due ? a->due < b->due : a->order < b->order;
            });
            if (next == m_pending.end() || (*next)->due > until)
                break;
            Entry *entry = *next;
            m_now = std::max(m_now, entry->due);
            const auto action = entry->action;
            if (entry->period.count() > 0) {
                entry->due += entry->period;
            } else {
                m_pending.erase(next);
                entry->isDone = true;
            }
            action();
        }
        m_now = until;
    }

    [[nodiscard]] std::size_t pendingCount() const { return m_pending.size(); }

    /// How long until something falls due; for ever when nothing will.
    [[nodiscard]] std::chrono::system_clock::duration untilNext() const {
        auto next = std::chrono::system_clock::duration::max();
        for (const auto *entry : m_pending)
            next = std::min(next, entry->due - m_now);
        return next;
    }

private:
    struct Entry final : Pending {
        ManualScheduler *owner = nullptr;
        std::chrono::system_clock::time_point due;
        std::chrono::milliseconds period{0};
        std::size_t order = 0;
        bool isDone = false;
        std::function<void()> action;

        ~Entry() override { std::erase(owner->m_pending, this); }
        [[nodiscard]] bool isActive() const override { return !isDone; }
    };

    Handle add(std::chrono::milliseconds delay, std::chrono::milliseconds period, std::function<void()> action) {
        auto entry = std::make_unique<Entry>();
        entry->owner = this;
        entry->due = m_now + delay;
        entry->period = period;
        entry->order = m_order++;
        entry->action = std::move(action);
        m_pending.push_back(entry.get());
        return entry;
    }

    std::chrono::system_clock::time_point m_now{std::chrono::seconds{1'800'000'000}};
    std::vector<Entry *> m_pending;
    std::size_t m_order = 0;
};

} // namespace palomet::test
