#include "app/StatusMenu.h"

#include "localization/Localization.h"
#include "model/PalometModel.h"

namespace palomet {

using namespace Qt::StringLiterals;

StatusMenu::StatusMenu(PalometModel &model)
    : m_model(model) {
    setUpMenuBar();
    connect(&m_model, &PalometModel::snapshotChanged, this, &StatusMenu::updateMenu);
    connect(&m_menu, &QMenu::aboutToShow, this, &StatusMenu::menuWillOpen);
}

StatusMenu::~StatusMenu() = default;

void StatusMenu::setUpMenuBar() {
    m_stateItem = m_menu.addAction(QString());
    m_stateItem->setEnabled(false);
    m_menu.addSeparator();
    m_listenItem = m_menu.addAction(plainTitle(L("menu.listen")), &m_model, &PalometModel::listen);
    m_stopItem = m_menu.addAction(plainTitle(L("menu.stop")), &m_model, &PalometModel::stop);
    m_muteItem = m_menu.addAction(QString(), &m_model, &PalometModel::toggleMute);
    m_menu.addSeparator();
    auto *openItem = m_menu.addAction(plainTitle(L("menu.open")), this, &StatusMenu::openRequested);
    openItem->setShortcut(QKeySequence(u"Ctrl+O"_s));
    m_menu.addSeparator();
    auto *quitItem = m_menu.addAction(plainTitle(L("menu.quit")), this, &StatusMenu::quitRequested);
    quitItem->setShortcut(QKeySequence(u"Ctrl+Q"_s));
    updateMenu();
}

void StatusMenu::showItem() {
    if (m_item)
        return;
    m_item = std::make_unique<QSystemTrayIcon>(m_icon, &m_menu);
    m_item->setToolTip(u"Palomet"_s);
    m_item->setContextMenu(&m_menu);
    // A panel may keep the menu for the other button.
    connect(m_item.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            Q_EMIT openRequested();
    });
    m_item->show();
}

void StatusMenu::setIcon(const QIcon &icon) {
    m_icon = icon;
    if (m_item)
        m_item->setIcon(icon);
}

void StatusMenu::setKeys(const QKeySequence &listen, const QKeySequence &stop) {
    m_listenItem->setShortcut(listen);
    m_stopItem->setShortcut(stop);
}

void StatusMenu::menuWillOpen() {
    m_model.refresh();
    updateMenu();
}

void StatusMenu::updateMenu() {
    const auto snapshot = m_model.snapshot();
    const auto state = word(m_model.state());
    m_stateItem->setText(plainTitle(snapshot ? state + u" · "_s + snapshot->device : state));
    m_muteItem->setText(plainTitle(m_model.isMutedByUser() ? L("menu.unmute") : L("menu.mute")));
}

QString StatusMenu::plainTitle(const QString &text) {
    auto title = text;
    title.replace(u'_', u"__"_s);
    // A mark before the ampersand itself; those behind the first are handed on as they are. So is one at the very end.
    const auto first = title.indexOf(u'&');
    if (first >= 0 && first < title.size() - 1)
        title.insert(first, u'&');
    return title;
}

} // namespace palomet
