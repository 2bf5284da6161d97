#include "ui/screens/HistoryScreen.h"

#include "localization/Localization.h"
#include "model/Format.h"

namespace palomet {

QVariant HistoryRows::data(const QModelIndex &index, int role) const {
    const auto &summary = row(index);
    switch (role) {
    case Day:
        return Format::day(summary.startedAt);
    case Question:
        return Format::oneLine(summary.firstQuestion);
    case Detail:
        return QString(L("history.answers", Count{summary.answers}) + QStringLiteral(" \u00B7 ") +
                       Format::usd(summary.costUsd));
    default:
        return {};
    }
}

QHash<int, QByteArray> HistoryRows::roleNames() const {
    return {{Day, "day"}, {Question, "question"}, {Detail, "detail"}};
}

HistoryScreen::HistoryScreen(PalometModel &model)
    : Screen(model) {
    follow(&PalometModel::historyChanged, [this] { m_rows.assign(this->model().history()); });
    follow(&PalometModel::nowChanged, [this] { updateDay(); });
}

void HistoryScreen::updateAll() {
    m_rows.assign(model().history());
    updateDay();
}

void HistoryScreen::updateDay() {
    const auto offset = Format::offset(model().now());
    const auto today = std::chrono::floor<std::chrono::days>(model().now() + offset);
    if (m_offset == offset && m_today == today)
        return;
    m_offset = offset;
    m_today = today;
    // At midnight, today becomes yesterday; in another time zone, every hour another.
    m_rows.touch({HistoryRows::Day});
}

} // namespace palomet
