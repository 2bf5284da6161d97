#include "ui/strip/StripView.h"

#include "model/Format.h"
#include "ui/strip/StripLine.h"

#include <utility>

namespace palomet {

StripView::StripView(PalometModel &model, std::function<void()> open)
    : m_model(model)
    , m_open(std::move(open)) {
    const auto follow = [this](auto signal, auto announce) {
        connect(&m_model, signal, this, [this, announce] {
            if (m_isShown)
                Q_EMIT(this->*announce)();
        });
    };
    follow(&PalometModel::snapshotChanged, &StripView::changed);
    follow(&PalometModel::spokenLineChanged, &StripView::changed);
    follow(&PalometModel::inLevelChanged, &StripView::levelChanged);
    follow(&PalometModel::outLevelChanged, &StripView::levelChanged);
}

void StripView::setShown(bool isShown) {
    m_isShown = isShown;
    if (!isShown)
        return;
    Q_EMIT changed();
    Q_EMIT levelChanged();
}

void StripView::setStopKey(const QString &words) {
    if (std::exchange(m_stopKey, words) != words && m_isShown)
        Q_EMIT changed();
}

QString StripView::line() const {
    // More than the strip can show: laying out all of a long line takes seconds.
    constexpr qsizetype most = 500;
    const auto line = stripLine(m_model);
    if (line.size() <= most)
        return format::oneLine(line);
    return format::oneLine(line.first(most)) + u'\u2026';
}

double StripView::level() const {
    return m_model.state() == LoopState::Speaking ? m_model.outLevel() : m_model.inLevel();
}

} // namespace palomet
