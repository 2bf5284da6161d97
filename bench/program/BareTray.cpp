// The least that shows an item in the tray: what everything else is measured against.

#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QPixmap picture(22, 22);
    picture.fill(Qt::black);
    QMenu menu;
    menu.addAction(QStringLiteral("Quit"), &application, &QApplication::quit);
    QSystemTrayIcon item{QIcon(picture)};
    item.setContextMenu(&menu);
    item.show();
    return QApplication::exec();
}
