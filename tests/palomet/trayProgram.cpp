// A program that shows the tray menu and nothing else: the first argument is the microphone's name. It ends when Quit
// is clicked.

#include "app/StatusIcon.h"
#include "app/StatusMenu.h"
#include "base/QtScheduler.h"
#include "localization/Localization.h"
#include "model/PalometModel.h"
#include "platform/dbus/StatusNotifierHost.h"
#include "tests/support/FakeMicrophonePermission.h"

#include <QApplication>

using namespace palomet;
using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    const auto resources = QStringLiteral(PALOMET_SOURCE_DIR "/resources");
    Localization::load(resources, {u"en"_s});

    QtScheduler scheduler;
    const test::FakeMicrophonePermission permission;
    PalometModel model(scheduler, permission, QUrl(u"http://127.0.0.1:1"_s));
    auto snapshot = std::make_shared<Snapshot>();
    snapshot->state = u"waiting"_s;
    snapshot->device = QCoreApplication::arguments().at(1);
    model.setSnapshot(std::move(snapshot));

    StatusMenu status(model);
    status.setIcon(statusIcon(resources, DesktopLook::Scheme::Light));
    QObject::connect(&status, &StatusMenu::quitRequested, &application, [] { QCoreApplication::exit(0); });
    StatusNotifierHost host(QDBusConnection::sessionBus());
    const auto showWhenThere = [&] {
        if (host.status() == TrayHost::Status::Present)
            status.showItem();
    };
    host.onChange = showWhenThere;
    return QApplication::exec();
}
