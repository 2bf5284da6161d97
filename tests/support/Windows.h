#pragma once

#include <QGuiApplication>
#include <QQuickView>

namespace palomet::test {

/// The windows of strips that were shown, the last one last; a program has one strip.
inline QList<QQuickView *> stripWindows() {
    QList<QQuickView *> found;
    for (auto *window : QGuiApplication::allWindows())
        if (auto *view = qobject_cast<QQuickView *>(window);
            view != nullptr && view->flags().testFlag(Qt::BypassWindowManagerHint))
            found.append(view);
    return found;
}

} // namespace palomet::test
