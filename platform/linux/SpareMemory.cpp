#include "platform/linux/SpareMemory.h"

#include <QFile>

#include <unistd.h>

#include <algorithm>
#include <chrono>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr int mebibyte = 1024 * 1024;
/// Less is not worth the looking.
constexpr std::size_t worthwhile = std::size_t{4} * mebibyte;

#ifdef __GLIBC__
void keepNoLargeBlocks() {
    // Above this size a block is a mapping of its own, which ends with it. Setting it ends its growing, too.
    mallopt(M_MMAP_THRESHOLD, mebibyte);
    mallopt(M_TRIM_THRESHOLD, mebibyte);
    // Memory that one thread has freed serves the others.
    mallopt(M_ARENA_MAX, 2);
}
void trim() {
    malloc_trim(mebibyte);
}
std::size_t freeBytes() {
    return mallinfo2().fordblks;
}
#else
void keepNoLargeBlocks() {}
void trim() {}
std::size_t freeBytes() {
    return 0;
}
#endif

/// The memory that the process holds; 0 where the system does not say.
std::size_t residentBytes() {
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QFile::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toULongLong() * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

SpareMemory::SpareMemory() {
    keepNoLargeBlocks();
    m_timer.callOnTimeout([this] { giveBack(); });
    m_timer.start(10s);
}

void SpareMemory::giveBack() {
    // A document that goes leaves more free; one that came and went since the last look, more held.
    const auto more = [](std::size_t &least, std::size_t now) {
        least = std::min(least, now);
        return now - least >= worthwhile;
    };
    const bool moreIsFree = more(m_free, freeBytes());
    const bool moreIsHeld = more(m_resident, residentBytes());
    if (!moreIsFree && !moreIsHeld)
        return;
    trim();
    m_free = freeBytes();
    m_resident = residentBytes();
}

} // namespace palomet
