#pragma once

#include <QQuickWindow>

namespace palomet::test {

/// Lets what is drawn need neither a display nor a graphics card, unless the environment names a platform. Before the
/// application object.
inline void useNoScreen() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace palomet::test
