#include "ui/kit/Wishes.h"

#include <QQmlEngine>

#include <utility>

namespace palomet {

Wishes *Wishes::create(QQmlEngine *engine, QJSEngine *) {
    auto &wishes = of(*engine);
    QJSEngine::setObjectOwnership(&wishes, QJSEngine::CppOwnership);
    return &wishes;
}

Wishes &Wishes::of(QQmlEngine &engine) {
    auto *wishes = engine.findChild<Wishes *>(QString(), Qt::FindDirectChildrenOnly);
    return wishes ? *wishes : *new Wishes(&engine);
}

void Wishes::assign(bool &member, bool value) {
    if (std::exchange(member, value) != value)
        Q_EMIT changed();
}

void Wishes::setMotionReduced(bool isReduced) {
    assign(m_isMotionReduced, isReduced);
}

void Wishes::setContrastRaised(bool isRaised) {
    assign(m_isContrastRaised, isRaised);
}

} // namespace palomet
