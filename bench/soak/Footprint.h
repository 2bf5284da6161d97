#pragma once

#include <QtGlobal>

namespace palomet::bench {

/// The memory and descriptors that a process holds at one moment.
struct Footprint {
    double megabytes = 0; ///< Its own. What it maps of files depends on who else maps them.
    qsizetype descriptors = 0;
    qsizetype threads = 0;

    static Footprint of(qint64 process);
};

void print(const char *when, const Footprint &footprint);

} // namespace palomet::bench
