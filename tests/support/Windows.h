#pragma once

#include <QApplication>
#include <QMenu>
#include <QQuickView>

#include <stdexcept>

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

/// The menu of the tray item, which need not be shown.
inline QMenu &trayMenu() {
    for (auto *widget : QApplication::topLevelWidgets())
        if (auto *menu = qobject_cast<QMenu *>(widget))
            return *menu;
    throw std::runtime_error("there is no menu");
}

} // namespace palomet::test
