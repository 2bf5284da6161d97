#pragma once

#ifndef NDEBUG
#include <atomic>
#include <cassert>
#include <thread>
#endif

namespace palomet {

/// Asserts that one thread alone uses what belongs to one: the thread that came to the check first. Where assertions
/// are off it does nothing. Takes no lock and allocates nothing.
class OnThread {
public:
#ifdef NDEBUG
    void check() const noexcept {}
    void release() noexcept {}
#else
    void check() const noexcept {
        std::thread::id owner;
        const auto current = std::this_thread::get_id();
        const bool isFirst = m_owner.compare_exchange_strong(owner, current);
        assert((isFirst || owner == current) && "this belongs to another thread");
    }

    /// That thread has done with it, and another one may follow.
    void release() noexcept {
        m_owner = std::thread::id();
    }

private:
    mutable std::atomic<std::thread::id> m_owner;
#endif
};

} // namespace palomet
