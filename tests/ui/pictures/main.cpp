#include "ui/kit/Kit.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QTimer>

int main(int argc, char **argv) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    const QString resources = qEnvironmentVariable("PALOMET_RESOURCES");
    palomet::Kit::registerFonts(resources);
    QQuickView view;
    palomet::Kit::install(*view.engine(), resources);
    view.setSource(QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])));
    view.show();
    QTimer::singleShot(300, &application, [&] {
        view.grabWindow().save(QString::fromLocal8Bit(argv[2]));
        application.quit();
    });
    return application.exec();
}
