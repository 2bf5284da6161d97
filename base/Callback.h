#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace palomet {

/// Keeps what was connected to a `Callback` connected; when it goes, that is not called any more.
class [[nodiscard]] Connection {
public:
    Connection() = default;

private:
    template <typename Signature>
    friend class Callback;
    explicit Connection(std::shared_ptr<void> receiver)
        : m_receiver(std::move(receiver)) {}

    std::shared_ptr<void> m_receiver;
};

template <typename Signature>
class Callback;

/// Where one receiver is called, the last that was assigned or connected; while there is none a call does nothing, and
/// gives the result's default. Whoever outlives the callback assigns, whoever may go first connects. A call takes no
/// lock and allocates nothing; a receiver that is replaced or disconnected by its own call is whole until it returns.
/// Several threads may call it. It is changed before the first call, or on the thread that alone calls it.
template <typename Outcome, typename... Arguments>
class Callback<Outcome(Arguments...)> {
public:
    using Receiver = std::function<Outcome(Arguments...)>;

    Callback() = default;
    Callback(const Callback &) = delete;
    Callback &operator=(const Callback &) = delete;

    Callback &operator=(Receiver receiver) {
        m_kept = connect(std::move(receiver));
        return *this;
    }

    Connection connect(Receiver receiver) {
        const auto shared = std::make_shared<Receiver>(std::move(receiver));
        m_receiver = shared;
        return Connection(shared);
    }

    Outcome operator()(Arguments... arguments) const {
        if (const auto receiver = m_receiver.lock(); receiver && *receiver)
            return (*receiver)(std::forward<Arguments>(arguments)...);
        return Outcome();
    }

private:
    std::weak_ptr<Receiver> m_receiver;
    Connection m_kept;
};

} // namespace palomet
