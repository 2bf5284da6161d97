#pragma once

#include "ui/shell/WindowManagement.h"

#include <QObject>
#include <QString>

#include <memory>

class QLocalSocket;

namespace palomet {

/// Has sway turn to a window of ours, by its own socket (sway-ipc(7)), as its panels do: what a window asks for
/// itself only marks it as urgent there, unless the user has set `focus_on_window_activation`.
class SwayWindowManagement final : public QObject, public WindowManagement {
    Q_OBJECT

public:
    /// What the toolkit's windows are to sway.
    enum class Kind { XWayland, Wayland };

    /// `socket` is the path that sway tells its programs. `otherwise` is asked whenever sway does not turn to a window:
    /// it has gone, or does not know the window yet.
    SwayWindowManagement(QString socket, Kind kind, std::unique_ptr<WindowManagement> otherwise);
    ~SwayWindowManagement() override;

    void introduce(quintptr window) override;
    /// True: what sway makes of it comes later.
    [[nodiscard]] bool activate(quintptr window) override;
    [[nodiscard]] bool exposesCoveredWindows() const override { return m_kind == Kind::XWayland; }
    [[nodiscard]] bool holdsLeastSize() const override { return m_otherwise->holdsLeastSize(); }
    [[nodiscard]] QSize untoldRoom() const override { return m_otherwise->untoldRoom(); }

private:
    /// The window as sway's commands select it.
    [[nodiscard]] QByteArray criteria(quintptr window) const;
    void ask(quintptr window);
    void read(quintptr window);
    /// The question is over; `isDone` says whether sway has turned to the window.
    void settle(quintptr window, bool isDone);

    const QString m_path;
    const Kind m_kind;
    const std::unique_ptr<WindowManagement> m_otherwise;
    /// Where a question is on its way; null else. Deleted later: it may be the one that is calling.
    QLocalSocket *m_socket = nullptr;
};

} // namespace palomet
