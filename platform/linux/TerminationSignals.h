#pragma once

#include "platform/linux/Descriptor.h"

#include <functional>
#include <memory>

class QSocketNotifier;

namespace palomet {

/// Handles signals as a program that lives on a desktop should. One object at a time, on the main thread, made once the
/// application object exists.
///
/// SIGTERM, SIGINT and SIGHUP are requests to quit, reported from the event loop (several that come close together may
/// be one report); a SIGHUP that was ignored from the start stays so. SIGPIPE and SIGXFSZ are ignored. Nothing is
/// blocked, so that the programs started from here by whomever begin with a clean mask.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> onRequest);
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;
    /// Gives the signals back their default action.
    ~TerminationSignals();

private:
    std::function<void()> m_onRequest;
    Descriptor m_bell;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace palomet
