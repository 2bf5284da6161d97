#pragma once

#include "app/ChildProcess.h"

#include <memory>

namespace palomet {

class GroupGuard;

/// A `ChildProcessFactory` by fork and exec. The child leads a process group of its own. A `guard`, which looks after
/// nobody else, ends it, its group and its descendants when this process ends in whatever way; without one the kernel
/// ends the child, and nobody else, when the thread that called this ends, so that must be the main thread. Returns
/// once the program runs or could not be run.
[[nodiscard]] Result<std::unique_ptr<ChildProcess>> startChildProcess(const ChildProcess::Launch &launch,
                                                                      std::function<void()> onExit,
                                                                      std::shared_ptr<GroupGuard> guard = nullptr);

} // namespace palomet
