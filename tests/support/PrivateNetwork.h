#pragma once

namespace palomet::test {

/// Gives this process, and whatever it starts from now on, a loopback of its own, on which every port is free whatever
/// else runs on this machine. To be called before there is a second thread. Returns whether it has one; systems may
/// forbid it, and the process is then without any network.
[[nodiscard]] bool enterPrivateNetwork();

} // namespace palomet::test
