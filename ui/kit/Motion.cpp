#include "ui/kit/Motion.h"

#include <QQmlEngine>

namespace palomet {

Motion *Motion::create(QQmlEngine *engine, QJSEngine *) {
    auto &motion = of(*engine);
    QJSEngine::setObjectOwnership(&motion, QJSEngine::CppOwnership);
    return &motion;
}

Motion &Motion::of(QQmlEngine &engine) {
    auto *motion = engine.findChild<Motion *>(QString(), Qt::FindDirectChildrenOnly);
    return motion ? *motion : *new Motion(&engine);
}

void Motion::setReduced(bool isReduced) {
    if (m_isReduced == isReduced)
        return;
    m_isReduced = isReduced;
    Q_EMIT isReducedChanged();
}

} // namespace palomet
