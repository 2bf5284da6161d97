#include "ui/screens/HistoryScreen.h"

#include "model/Format.h"

namespace palomet {

using namespace Qt::StringLiterals;

QVariant HistoryRows::data(const QModelIndex &index, int role) const {
    const auto &summary = row(index);
    switch (role) {
    case Day:
        return format::day(summary.startedAt);
    case Question:
        return format::oneLine(summary.firstQuestion);
    case Detail:
        return format::outcome(summary.answers, summary.costUsd);
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
    const auto offset = format::offset(model().now());
    const auto today = std::chrono::floor<std::chrono::days>(model().now() + offset);
    if (m_offset == offset && m_today == today)
        return;
    m_offset = offset;
    m_today = today;
    // The days change at midnight, the hours with the time zone.
    m_rows.touch({HistoryRows::Day});
}

} // namespace palomet
