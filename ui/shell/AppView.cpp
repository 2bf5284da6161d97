#include "ui/shell/AppView.h"

#include "localization/Localization.h"

namespace palomet {

AppView::AppView(PalometModel &model, Navigation &navigation, Shortcuts &shortcuts, const KeyboardLayout &layout,
                 Details details, Outside outside)
    : m_model(model)
    , m_navigation(navigation)
    , m_details(std::move(details))
    , m_outside(std::move(outside))
    , m_now(model)
    , m_history(model)
    , m_listening(model, shortcuts, layout)
    , m_voice(model)
    , m_brain(model, m_details.home, m_outside.pickFolders) {
    connect(&m_navigation, &Navigation::paneChanged, this, [this] {
        // The screen is up to date before it is shown.
        updateScreens();
        Q_EMIT paneChanged();
    });
    connect(&m_model, &PalometModel::historyChanged, this, &AppView::historyBadgeChanged);
    connect(&m_model, &PalometModel::snapshotChanged, this, &AppView::isMicOnChanged);
    connect(&m_model, &PalometModel::isMicAuthorizedChanged, this, &AppView::isMicOnChanged);
}

void AppView::setShown(bool isShown) {
    m_isShown = isShown;
    updateScreens();
}

Screen &AppView::screen(Pane pane) {
    switch (pane) {
    case Pane::Now:
        return m_now;
    case Pane::History:
        return m_history;
    case Pane::Listening:
        return m_listening;
    case Pane::Voice:
        return m_voice;
    case Pane::Brain:
        return m_brain;
    }
    return m_now;
}

void AppView::updateScreens() {
    for (const auto pane : allPanes)
        screen(pane).setActive(m_isShown && pane == m_navigation.pane());
}

QString AppView::version() const {
    return L("sidebar.version", m_details.version.isEmpty() ? QStringLiteral("dev") : m_details.version);
}

QVariantList AppView::groups() const {
    QVariantList groups;
    for (const auto &name : {QStringLiteral("conversation"), QStringLiteral("settings")}) {
        QVariantList panes;
        for (const auto pane : allPanes) {
            if (palomet::group(pane) == name)
                panes.append(QVariantMap{{QStringLiteral("pane"), QVariant::fromValue(pane)},
                                         {QStringLiteral("title"), palomet::title(pane)},
                                         {QStringLiteral("icon"), icon(pane)}});
        }
        groups.append(QVariantMap{{QStringLiteral("title"), L(QStringLiteral("group.") + name)},
                                  {QStringLiteral("panes"), panes}});
    }
    return groups;
}

QString AppView::historyBadge() const {
    return m_model.history().empty() ? QString() : QString::number(m_model.history().size());
}

void AppView::fixMicrophone() {
    if (!isMicOn())
        m_outside.openMicrophoneSettings();
}

} // namespace palomet
