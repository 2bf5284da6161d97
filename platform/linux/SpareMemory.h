#pragma once

#include <QTimer>

#include <cstddef>

namespace palomet {

/// Sees to it that what a large message or document took goes back to the system when it is gone. The allocator would
/// keep it: after the first large block it takes others up to that size from its heap, and of what lies free there it
/// gives back the end only.
///
/// One for the whole process, made on the main thread before anything large is, while there are few threads. Where the
/// allocator is another than glibc's it does nothing.
class SpareMemory {
public:
    SpareMemory();

    /// Looks for what was freed since the last time and gives it back; its timer does so every ten seconds.
    void giveBack();

private:
    QTimer m_timer;
    // The least since memory was last given back.
    std::size_t m_free = 0;     ///< What lies free in the allocator.
    std::size_t m_resident = 0; ///< What the process holds.
};

} // namespace palomet
