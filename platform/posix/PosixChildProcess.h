#pragma once

#include "app/ChildProcess.h"

namespace palomet {

/// A `ChildProcessFactory` by fork and exec. The child leads a process group of its own; the kernel ends it when the
/// thread that called this ends, so that must be the main thread. Returns once the program runs or could not be run.
[[nodiscard]] Result<std::unique_ptr<ChildProcess>> startChildProcess(const ChildProcess::Launch &launch,
                                                                      std::function<void()> onExit);

} // namespace palomet
