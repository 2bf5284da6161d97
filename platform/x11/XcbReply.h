#pragma once

#include <cstdlib>
#include <memory>

namespace palomet {

struct FreeDeleter {
    void operator()(void *memory) const { std::free(memory); }
};

/// Memory that the X client library hands out to be freed: replies, errors, events.
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, FreeDeleter>;

} // namespace palomet
