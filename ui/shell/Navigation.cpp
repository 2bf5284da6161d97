#include "ui/shell/Navigation.h"

#include "localization/Localization.h"

#include <algorithm>

namespace palomet {

namespace {

struct Description {
    QStringView rawValue;
    QStringView group;
    QStringView icon;
};

constexpr std::array descriptions{
    Description{u"now", u"conversation", u"message"},  Description{u"history", u"conversation", u"history"},
    Description{u"listening", u"settings", u"ear"},    Description{u"voice", u"settings", u"volume"},
    Description{u"brain", u"settings", u"terminal-2"},
};

const Description &description(Pane pane) {
    return descriptions.at(static_cast<std::size_t>(pane));
}

} // namespace

void Navigation::setPane(Pane pane) {
    if (m_pane == pane)
        return;
    m_pane = pane;
    Q_EMIT paneChanged();
}

std::optional<Pane> paneFrom(QStringView raw) {
    const auto *found =
        std::find_if(allPanes.begin(), allPanes.end(), [raw](Pane pane) { return description(pane).rawValue == raw; });
    return found == allPanes.end() ? std::nullopt : std::optional(*found);
}

QString rawValue(Pane pane) {
    return description(pane).rawValue.toString();
}

QString group(Pane pane) {
    return description(pane).group.toString();
}

QString title(Pane pane) {
    return L(QStringLiteral("pane.") + rawValue(pane));
}

QString subtitle(Pane pane) {
    return L(QStringLiteral("pane.") + rawValue(pane) + QStringLiteral(".subtitle"));
}

QString icon(Pane pane) {
    return description(pane).icon.toString();
}

} // namespace palomet
