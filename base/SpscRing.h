#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>

namespace palomet {

/// A fixed queue between exactly one producing and one consuming thread. Neither side locks, allocates or waits: what
/// does not fit is not taken, what is not there is not given. Positions only grow; each thread writes its own.
template <typename Item>
class SpscRing {
    static_assert(std::is_trivially_copyable_v<Item>, "items are copied between threads as bytes");

public:
    /// Room for at least `capacity` items, rounded up to a power of two.
    explicit SpscRing(std::size_t capacity) {
        std::size_t size = 1;
        while (size < capacity)
            size *= 2;
        m_mask = size - 1;
        m_items = std::make_unique<Item[]>(size);
    }

    [[nodiscard]] std::size_t capacity() const { return m_mask + 1; }

    /// Producer. Takes all of `items`, or none when they do not fit.
    bool push(std::span<const Item> items) noexcept {
        const auto written = m_written.load(std::memory_order_relaxed);
        if (items.size() > capacity() - (written - m_read.load(std::memory_order_acquire)))
            return false;
        for (std::size_t i = 0; i < items.size(); ++i)
            m_items[(written + i) & m_mask] = items[i];
        m_written.store(written + items.size(), std::memory_order_release);
        return true;
    }
    bool push(const Item &item) noexcept { return push(std::span<const Item>(&item, 1)); }

    /// Consumer. Gives up to `items.size()` items and returns how many.
    std::size_t pop(std::span<Item> items) noexcept {
        const auto read = m_read.load(std::memory_order_relaxed);
        const auto available = m_written.load(std::memory_order_acquire) - read;
        const auto count = items.size() < available ? items.size() : available;
        for (std::size_t i = 0; i < count; ++i)
            items[i] = m_items[(read + i) & m_mask];
        m_read.store(read + count, std::memory_order_release);
        return count;
    }
    bool pop(Item &item) noexcept { return pop(std::span<Item>(&item, 1)) == 1; }

    /// Either side; a moment later it may be more (seen by the consumer) or less (seen by the producer).
    [[nodiscard]] std::size_t size() const noexcept {
        return m_written.load(std::memory_order_acquire) - m_read.load(std::memory_order_acquire);
    }

private:
    std::unique_ptr<Item[]> m_items;
    std::size_t m_mask = 0;
    // On cache lines of their own, so that the two threads do not take turns at one.
    alignas(64) std::atomic<std::size_t> m_written{0};
    alignas(64) std::atomic<std::size_t> m_read{0};
};

} // namespace palomet
