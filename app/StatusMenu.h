#pragma once

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace palomet {

class PalometModel;

/// The tray item's menu and, once there is a host for it, the item. It shows the model's state, kept current by every
/// snapshot and asked for anew whenever the menu is opened, and sends the user's commands to the model.
class StatusMenu final : public QObject {
    Q_OBJECT

public:
    /// `model` outlives this object.
    explicit StatusMenu(PalometModel &model);
    ~StatusMenu() override;

    /// Shows the item. To be called once a host is there: the toolkit looks for one only once. From then on the item
    /// follows the host by itself.
    void showItem();

    void setIcon(const QIcon &icon);

    /// The keys that the menu shows for listening and for stopping; an empty sequence is none.
    void setKeys(const QKeySequence &listen, const QKeySequence &stop);

    /// The text that the desktop's menus show as exactly this one. They read an underscore as the mark of a mnemonic;
    /// the toolkit hands them the first ampersand as such a mark.
    [[nodiscard]] static QString plainTitle(const QString &text);

Q_SIGNALS:
    /// By the menu, or by a click on the item where the panel does not answer that with the menu.
    void openRequested();
    void quitRequested();

private:
    void setUpMenuBar();
    void menuWillOpen();
    void updateMenu();

    PalometModel &m_model;
    QMenu m_menu;
    QIcon m_icon;
    QAction *m_stateItem = nullptr;
    QAction *m_listenItem = nullptr;
    QAction *m_stopItem = nullptr;
    QAction *m_muteItem = nullptr;
    std::unique_ptr<QSystemTrayIcon> m_item;
};

} // namespace palomet
