#include "tests/ui/pictures/Studio.h"
#include "ui/preview/Preview.h"
#include "ui/shell/FolderDialog.h"
#include "ui/shell/ToolkitWords.h"

#include <QApplication>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMouseEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTranslator>

namespace palomet::test {

using namespace Qt::StringLiterals;

void Studio::converse(int rows) {
    auto document = QJsonDocument::fromJson(Preview::documents(0).state).object();
    auto conversation = document[u"conversation"_s].toObject();
    const auto sample = conversation[u"rows"_s].toArray();
    QJsonArray turns;
    for (int i = 0; i < rows; ++i) {
        auto turn = sample[i % sample.size()].toObject();
        turn[u"text"_s] = turn[u"text"_s].toString() + u' ' + turn[u"text"_s].toString().repeated(i % 5);
        turns.append(turn);
    }
    conversation[u"rows"_s] = turns;
    document[u"conversation"_s] = conversation;
    if (auto snapshot = decodeSnapshot(QJsonDocument(document).toJson()))
        m_model->setSnapshot(std::make_shared<const Snapshot>(std::move(*snapshot)));
}

void Studio::takeConversations(const QString &language) {
    AppView app(*m_model, m_navigation, m_shortcuts, m_layout, {u"2.1.0"_s, u"/home/user"_s}, {});
    for (const auto size : {QSize(960, 640), QSize(1120, 760), QSize(1600, 1000)}) {
        for (const int rows : {0, 3, 8, 200}) {
            converse(rows);
            SettingsWindow window(m_ui.get(), app, m_scheduler, nullptr);
            window.resize(size);
            window.bringToFront();
            const auto name = u"conversation-%1x%2-%3"_s.arg(QString::number(size.width()),
                                                             QString::number(size.height()), QString::number(rows));
            take(window, name + u'-' + language);
            settle();
            for (int page = 0; page < 2; ++page)
                QMetaObject::invokeMethod(window.rootObject(), "scroll", Q_ARG(int, Qt::Key_PageUp));
            QMetaObject::invokeMethod(window.rootObject(), "scroll", Q_ARG(int, Qt::Key_Down));
            take(window, name + u"-scrolled-"_s + language);
        }
    }
}

void Studio::takeSelection(const QString &language) {
    converse(8);
    AppView app(*m_model, m_navigation, m_shortcuts, m_layout, {u"2.1.0"_s, u"/home/user"_s}, {});
    SettingsWindow window(m_ui.get(), app, m_scheduler, nullptr);
    window.bringToFront();
    settle();
    const auto mouse = [&](QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, at, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    };
    const QPointF from(520, 480);
    const QPointF to(640, 580);
    mouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, (from + to) / 2, Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, {});
    take(window, u"selection-"_s + language);
    mouse(QEvent::MouseButtonPress, to - QPointF(40, 0), Qt::RightButton, Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, to - QPointF(40, 0), Qt::RightButton, {});
    take(window, u"selection-menu-"_s + language);
}

void Studio::takeFolderDialog(const QString &language) {
    translateToolkit(*QCoreApplication::instance(), language);
    askForFolders(nullptr, m_home.path(), [](const QStringList &) {});
    settle();
    for (auto *widget : QApplication::topLevelWidgets()) {
        if (!qobject_cast<QFileDialog *>(widget))
            continue;
        widget->grab().save(path(u"folder-dialog-"_s + language));
        widget->close();
    }
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
}

} // namespace palomet::test
