#pragma once

#include "command/RemoteService.h"

#include <QObject>

#include <functional>

namespace palomet {

class PalometModel;

/// Lets other programs of this user do what the menu and the window do, and tells them how the program is. Main thread.
class RemoteControl final : public QObject {
    Q_OBJECT

public:
    /// `service` and `model` outlive this.
    RemoteControl(RemoteService &service, PalometModel &model);
    ~RemoteControl() override;

    /// Opens the window, on a pane if one is named; whether there is such a window.
    std::function<bool(const std::optional<QString> &pane)> onOpen = [](const auto &) { return false; };
    std::function<void()> onQuit = [] {};
    /// Another instance is the one that runs now.
    std::function<void()> onReplaced = [] {};

private:
    RemoteOutcome perform(const RemoteCommand &command);
    RemoteOutcome post(const std::function<void()> &command);
    void publish();

    RemoteService &m_service;
    PalometModel &m_model;
};

} // namespace palomet
