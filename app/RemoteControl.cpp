#include "app/RemoteControl.h"

#include "command/CommandLine.h"
#include "model/PalometModel.h"

#include <array>
#include <functional>

namespace palomet {

namespace {

struct Action {
    QLatin1StringView name;
    void (PalometModel::*perform)();
};

constexpr std::array actions{
    Action{QLatin1StringView("listen"), &PalometModel::listen},
    Action{QLatin1StringView("stop"), &PalometModel::stop},
    Action{QLatin1StringView("mute"), &PalometModel::toggleMute},
    Action{QLatin1StringView("new"), &PalometModel::newConversation},
    Action{QLatin1StringView("act"), &PalometModel::act},
    Action{QLatin1StringView("clear-draft"), &PalometModel::clearDraft},
};

} // namespace

RemoteControl::RemoteControl(RemoteService &service, PalometModel &model)
    : m_service(service)
    , m_model(model) {
    m_service.onCommand = [this](const RemoteCommand &command) { return perform(command); };
    m_service.onActivate = [this] { onOpen(std::nullopt); };
    m_service.onReplaced = [this] { onReplaced(); };
    connect(&m_model, &PalometModel::snapshotChanged, this, &RemoteControl::publish);
    connect(&m_model, &PalometModel::isMicAuthorizedChanged, this, &RemoteControl::publish);
    connect(&m_model, &PalometModel::hotKeyProblemChanged, this, &RemoteControl::publish);
    publish();
}

RemoteControl::~RemoteControl() {
    m_service.onCommand = nullptr;
    m_service.onActivate = nullptr;
    m_service.onReplaced = nullptr;
}

RemoteOutcome RemoteControl::perform(const RemoteCommand &command) {
    for (const auto &action : actions) {
        if (command.action == action.name)
            return post(std::bind_front(action.perform, &m_model));
    }
    if (command.action == QStringLiteral("say")) {
        // Another program than ours may have sent it.
        const auto text = CommandLine::checkedText(command.text.value_or(QString()).toUtf8());
        return text ? post([&] { m_model.say(*text); }) : RemoteOutcome::Unknown;
    }
    if (command.action == QStringLiteral("open"))
        return onOpen(command.text) ? RemoteOutcome::Done : RemoteOutcome::Unknown;
    if (command.action == QStringLiteral("quit")) {
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
    m_service.publish({rawValue(m_model.state()), snapshot ? snapshot->device : QString(),
                       snapshot && snapshot->isMuted, m_model.isMicOn(), m_model.hotKeyProblem().value_or(QString())});
}

} // namespace palomet
