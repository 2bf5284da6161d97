#pragma once

#include <QApplication>

#include <functional>

namespace palomet {

/// The application object of a program that lives in the tray: it does not end with its last window, and whoever wants
/// it to end, the desktop at the end of the session above all, makes a request.
class Application final : public QApplication {
    Q_OBJECT

public:
    Application(int &argumentCount, char **arguments);

    bool event(QEvent *event) override;

Q_SIGNALS:
    /// May come several times.
    void quitRequested();
};

} // namespace palomet
