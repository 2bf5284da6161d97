#pragma once

#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/ui/support/Scene.h"
#include "tests/ui/support/UiTest.h"
#include "ui/Ui.h"
#include "ui/shell/SettingsWindow.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

namespace palomet::test {

/// The whole window on the offscreen platform, in front and active, with a model that the test fills. A warning of the
/// QML engine fails the test.
class WindowTest : public UiTest {
protected:
    WindowTest() {
        // As a screen reader does that asks for the program.
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        QObject::connect(&engine, &QQmlEngine::warnings, &engine, [](const QList<QQmlError> &errors) {
            for (const auto &error : errors)
                ADD_FAILURE() << error.toString().toStdString();
        });
        Ui::install(engine, QStringLiteral(PALOMET_BINARY_DIR "/resources"));
    }

    ~WindowTest() override {
        window.reset();
        // Pages that were left are deleted later, and that must not be later than their engine.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open(Pane pane) {
        navigation.setPane(pane);
        window = std::make_unique<SettingsWindow>(engine, app, scheduler(), nullptr);
        window->bringToFront();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        // Rows are made, and the page finds its place, as the first frames are drawn.
        for (int frame = 0; frame < 2; ++frame) {
            [[maybe_unused]] const auto picture = window->grabWindow();
            QCoreApplication::processEvents();
        }
    }

    /// What there is to choose from.
    void offer() {
        auto options = *decodeOptions(fixture("options/full.json"));
        model().setOptions(std::move(options));
    }

    [[nodiscard]] QList<QQuickItem *> all(const char *type) { return Scene::all(window->contentItem(), type); }
    [[nodiscard]] QQuickItem *first(const char *type) {
        const auto found = all(type);
        if (found.isEmpty())
            ADD_FAILURE() << "There is no " << type << ".";
        return found.value(0);
    }

    [[nodiscard]] static QString name(QQuickItem *item) {
        auto *interface = QAccessible::queryAccessibleInterface(item);
        return interface ? interface->text(QAccessible::Name) : QString();
    }
    [[nodiscard]] static QAccessible::Role role(QQuickItem *item) {
        auto *interface = QAccessible::queryAccessibleInterface(item);
        return interface ? interface->role() : QAccessible::NoRole;
    }
    /// The item with that accessible name, of those of one QML type.
    [[nodiscard]] QQuickItem *named(const char *type, const QString &wanted) {
        for (auto *item : all(type))
            if (name(item) == wanted)
                return item;
        ADD_FAILURE() << "There is no " << type << " named " << wanted.toStdString() << ".";
        return nullptr;
    }

    void press(QQuickItem *item) {
        QTest::mouseClick(window.get(), Qt::LeftButton, {}, item->mapToScene(item->boundingRect().center()).toPoint());
    }
    /// Scrolls it into view first, as somebody would.
    void pressInView(QQuickItem *item) {
        item->forceActiveFocus(Qt::MouseFocusReason);
        press(item);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(window.get(), key, modifiers); }
    void type(const QString &text) {
        QTest::sendKeyEvent(QTest::Click, window.get(), Qt::Key_unknown, text, Qt::NoModifier);
    }
    [[nodiscard]] QQuickItem *focused() { return window->activeFocusItem(); }

    QTemporaryDir folder;
    QSettings file{folder.filePath(QStringLiteral("palomet.conf")), QSettings::IniFormat};
    Shortcuts shortcuts{file};
    FixedKeyboardLayout layout;
    Navigation navigation;
    QStringList picked;
    AppView app{model(),
                navigation,
                shortcuts,
                layout,
                {.version = QStringLiteral("2.1.0"), .home = QStringLiteral("/home/ana")},
                {.openLog = [] {},
                 .openMicrophoneSettings = [] {},
                 .pickFolders = [this](const std::function<void(const QStringList &)> &answer) { answer(picked); }}};
    QQmlEngine engine;
    std::unique_ptr<SettingsWindow> window;
};

} // namespace palomet::test
