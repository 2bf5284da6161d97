#include "app/Application.h"

#include <QEvent>
#include <QSessionManager>

namespace palomet {

Application::Application(int &argumentCount, char **arguments)
    : QApplication(argumentCount, arguments) {
    setQuitOnLastWindowClosed(false);
    // The next session starts it, or does not, as the user has set that up.
    connect(
        this, &QGuiApplication::commitDataRequest, this,
        [](QSessionManager &session) { session.setRestartHint(QSessionManager::RestartNever); }, Qt::DirectConnection);
}

bool Application::event(QEvent *event) {
    if (event->type() != QEvent::Quit)
        return QApplication::event(event);
    Q_EMIT quitRequested();
    return true;
}

} // namespace palomet
