#include "app/RemoteControl.h"

#include "command/CommandLine.h"
#include "model/PalometModel.h"

#include <array>
#include <functional>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

struct Action {
    QLatin1StringView name;
    void (PalometModel::*perform)();
};

constexpr std::array actions{
    Action{"listen"_L1, &PalometModel::listen},   Action{"stop"_L1, &PalometModel::stop},
    Action{"mute"_L1, &PalometModel::toggleMute}, Action{"new"_L1, &PalometModel::newConversation},
    Action{"act"_L1, &PalometModel::act},         Action{"clear-draft"_L1, &PalometModel::clearDraft},
};

} // namespace

RemoteControl::RemoteControl(RemoteService &service, PalometModel &model)
    : m_service(service)
    , m_model(model) {
    m_connections = {
        m_service.onCommand.connect([this](const RemoteCommand &command) { return perform(command); }),
        m_service.onActivate.connect([this](const auto &activation) { onOpen(std::nullopt, activation); }),
        m_service.onReplaced.connect([this] { onReplaced(); }),
    };
    connect(&m_model, &PalometModel::snapshotChanged, this, &RemoteControl::publish);
    connect(&m_model, &PalometModel::isMicAuthorizedChanged, this, &RemoteControl::publish);
    connect(&m_model, &PalometModel::hotKeyProblemChanged, this, &RemoteControl::publish);
    publish();
}

RemoteOutcome RemoteControl::perform(const RemoteCommand &command) {
    for (const auto &action : actions) {
        if (command.action == action.name)
            return post(std::bind_front(action.perform, &m_model));
    }
    if (command.action == u"say"_s) {
        // Another program than ours may have sent it.
        const auto text = CommandLine::checkedText(command.text.value_or(QString()).toUtf8());
        return text ? post([&] { m_model.say(*text); }) : RemoteOutcome::Unknown;
    }
    if (command.action == u"open"_s)
        return onOpen(command.text, command.activation) ? RemoteOutcome::Done : RemoteOutcome::Unknown;
    if (command.action == u"quit"_s) {
        onQuit();
        return RemoteOutcome::Done;
    }
    return RemoteOutcome::Unknown;
}

RemoteOutcome RemoteControl::post(const std::function<void()> &command) {
    if (m_model.isBusy())
        return RemoteOutcome::Busy;
    command();
    return RemoteOutcome::Done;
}

void RemoteControl::publish() {
    const auto &snapshot = m_model.snapshot();
    m_service.publish({rawValue(m_model.state()), snapshot ? snapshot->device : QString(), m_model.isMutedByUser(),
                       m_model.isMicOn(), m_model.hotKeyProblem().value_or(QString())});
}

} // namespace palomet
