#pragma once

#include "tests/support/Eventually.h"
#include "ui/kit/Kit.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <gtest/gtest.h>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// A small window on the offscreen platform that shows one piece of QML, and the hands that use it.
class Scene {
public:
    explicit Scene(const QByteArray &qml, QSize size = {640, 480}) {
        kit::install(*m_view.engine(), u"" PALOMET_BINARY_DIR "/resources"_s);
        QObject::connect(m_view.engine(), &QQmlEngine::warnings, m_view.engine(), [](const QList<QQmlError> &errors) {
            for (const auto &error : errors)
                ADD_FAILURE() << error.toString().toStdString();
        });
        m_component.setData("import QtQuick\nimport Palomet.Kit\n" + qml, QUrl(u"qrc:/Scene.qml"_s));
        if (m_component.isError())
            ADD_FAILURE() << m_component.errorString().toStdString();
        m_view.setContent(m_component.url(), &m_component, m_component.create());
        m_view.resize(size);
        m_view.show();
        m_view.requestActivate();
        if (!QTest::qWaitForWindowActive(&m_view))
            ADD_FAILURE() << "The window was never active.";
    }

    [[nodiscard]] QQuickView &window() { return m_view; }
    [[nodiscard]] QQuickItem *root() { return m_view.rootObject(); }

    /// The item of that object name, wherever it is in the window.
    [[nodiscard]] QQuickItem *item(const char *name) {
        auto *found = find(m_view.contentItem(), QString::fromUtf8(name));
        if (!found)
            ADD_FAILURE() << "There is no " << name << ".";
        return found;
    }

    [[nodiscard]] static QVariant value(QQuickItem *item, const char *property) { return item->property(property); }
    [[nodiscard]] QVariant value(const char *name, const char *property) { return item(name)->property(property); }
    [[nodiscard]] QString text(const char *name, const char *property) { return value(name, property).toString(); }

    /// Lets the window draw, and with it find out what is under the pointer.
    void draw() {
        for (int frame = 0; frame < 3; ++frame) {
            m_view.update();
            [[maybe_unused]] const auto picture = m_view.grabWindow();
            QCoreApplication::processEvents();
        }
    }

    void press(QQuickItem *target) {
        QTest::mouseClick(&m_view, Qt::LeftButton, {}, target->mapToScene(target->boundingRect().center()).toPoint());
    }
    void press(const char *name) { press(item(name)); }
    void point(QQuickItem *target) {
        QTest::mouseMove(&m_view, target->mapToScene(target->boundingRect().center()).toPoint());
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&m_view, key, modifiers); }
    void type(const char *text) {
        QTest::sendKeyEvent(QTest::Click, &m_view, Qt::Key_unknown, QString::fromUtf8(text), {});
    }

    [[nodiscard]] static QQuickItem *find(QQuickItem *from, const QString &name) {
        if (from->objectName() == name)
            return from;
        for (auto *child : from->childItems())
            if (auto *found = find(child, name))
                return found;
        return nullptr;
    }

    /// All items below `from` whose QML type is of that name.
    [[nodiscard]] static QList<QQuickItem *> all(QQuickItem *from, const char *type) {
        QList<QQuickItem *> found;
        const auto name = QString::fromUtf8(from->metaObject()->className());
        if (name.section(u"_QML"_s, 0, 0).section(u"::"_s, -1) == QString::fromUtf8(type))
            found.append(from);
        for (auto *child : from->childItems())
            found += all(child, type);
        return found;
    }

private:
    QQuickView m_view;
    QQmlComponent m_component{m_view.engine()};
};

} // namespace palomet::test
