#pragma once

#include "tests/ui/support/Scene.h"
#include "tests/ui/support/UiTest.h"
#include "ui/UiEngine.h"
#include "ui/shell/SettingsWindow.h"

#include <QAccessible>
#include <QSettings>
#include <QTemporaryDir>

namespace palomet::test {

/// The whole window, with a model that the test fills and settings that it remembers its frame in. A warning of the QML
/// engine fails the test.
class SettingsWindowTest : public UiTest {
protected:
    SettingsWindowTest() {
        QObject::connect(&m_ui.get(), &QQmlEngine::warnings, &m_ui.get(), [](const QList<QQmlError> &errors) {
            for (const auto &error : errors)
                ADD_FAILURE() << error.toString().toStdString();
        });
    }

    void open() {
        if (!m_window)
            m_window = std::make_unique<SettingsWindow>(m_ui.get(), m_app, scheduler(), &m_settings);
        m_window->bringToFront();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    [[nodiscard]] QList<QQuickItem *> all(const char *type) const { return Scene::all(m_window->contentItem(), type); }
    [[nodiscard]] QQuickItem *titled(const char *type, const QString &title) const {
        for (auto *item : all(type)) {
            if (item->property("title") == title)
                return item;
        }
        ADD_FAILURE() << "no " << type << ' ' << title.toStdString();
        return nullptr;
    }
    void press(QQuickItem *item) {
        ASSERT_TRUE(item);
        QTest::mouseClick(m_window.get(), Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(m_window.get(), key, modifiers); }

    /// What the header says.
    [[nodiscard]] QStringList header() const {
        const auto *header = all("PageHeader").value(0);
        return {header->property("crumb").toString(), header->property("title").toString(),
                header->property("subtitle").toString()};
    }
    /// The header's buttons, from left to right, the primary one marked.
    [[nodiscard]] QStringList actions() const {
        QStringList found;
        for (const auto *button : Scene::all(all("PageHeader").value(0), "ZenButton"))
            found.append(button->property("title").toString() +
                         (button->property("kind") == 0 ? QStringLiteral("!") : QStringLiteral("")));
        return found;
    }
    [[nodiscard]] QStringList activeItems() const {
        QStringList found;
        for (const auto *item : all("SidebarItem")) {
            if (item->property("isActive").toBool())
                found.append(item->property("title").toString());
        }
        return found;
    }

    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath(QStringLiteral("palomet.conf")), QSettings::IniFormat};
    Shortcuts m_shortcuts{m_settings};
    NoKeyboardLayout m_layout;
    Navigation m_navigation;
    QStringList m_calls;
    AppView m_app{model(),
                  m_navigation,
                  m_shortcuts,
                  m_layout,
                  {QStringLiteral("1.2.3"), QStringLiteral("/home/user")},
                  {.openLog = [this] { m_calls.append(QStringLiteral("log")); },
                   .openMicrophoneSettings = [this] { m_calls.append(QStringLiteral("microphone")); },
                   .pickFolders = [](auto &&) {}}};
    UiEngine m_ui{QStringLiteral(PALOMET_BINARY_DIR "/resources")};
    std::unique_ptr<SettingsWindow> m_window;
};

} // namespace palomet::test
