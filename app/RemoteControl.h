#pragma once

#include "base/Callback.h"
#include "command/RemoteService.h"

#include <QObject>

#include <array>
#include <functional>

namespace palomet {

class PalometModel;

/// Lets other programs of this user do what the menu and the window do, and tells them how the program is. Main thread.
class RemoteControl final : public QObject {
    Q_OBJECT

public:
    /// `service` and `model` outlive this.
    RemoteControl(RemoteService &service, PalometModel &model);

    /// Opens the window, on a pane if one is named, with what the desktop gave for that (see `RemoteCommand`); whether
    /// there is such a window.
    Callback<bool(const std::optional<QString> &pane, const QString &activation)> onOpen;
    Callback<void()> onQuit;
    /// Another instance is the one that runs now.
    Callback<void()> onReplaced;

private:
    RemoteOutcome perform(const RemoteCommand &command);
    RemoteOutcome post(const std::function<void()> &command);
    void publish();

    RemoteService &m_service;
    PalometModel &m_model;
    std::array<Connection, 3> m_connections;
};

} // namespace palomet
