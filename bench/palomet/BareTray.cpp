// The least that shows an item in the tray, and a window without anything in it, drawn by the processor, when a line
// comes in; another line hides it. What everything else is measured against.

#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QQuickView>
#include <QQuickWindow>
#include <QSocketNotifier>
#include <QSystemTrayIcon>

#include <unistd.h>

#include <memory>

int main(int argc, char **argv) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QApplication application(argc, argv);
    QPixmap picture(22, 22);
    picture.fill(Qt::black);
    QMenu menu;
    menu.addAction(QStringLiteral("Quit"), &application, &QApplication::quit);
    QSystemTrayIcon item{QIcon(picture)};
    item.setContextMenu(&menu);
    item.show();

    std::unique_ptr<QQuickView> window;
    QSocketNotifier orders(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&orders, &QSocketNotifier::activated, &application, [&] {
        char order[64];
        if (read(STDIN_FILENO, order, sizeof order) <= 0)
            return orders.setEnabled(false);
        if (!window) {
            window = std::make_unique<QQuickView>();
            window->setColor(Qt::white);
            window->resize(1120, 760);
        }
        window->setVisible(!window->isVisible());
    });
    const int code = QApplication::exec();
    window.reset();
    return code;
}
