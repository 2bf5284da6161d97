#pragma once

#include "tests/ui/support/UiTest.h"
#include "ui/shell/AppView.h"

#include <QSettings>
#include <QTemporaryDir>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// What the window shows, with a model that the test fills and settings of the test's own. `m_calls` notes what was
/// asked of the desktop.
class AppViewFixture : public UiTest {
protected:
    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
    Shortcuts m_shortcuts{m_settings};
    NoKeyboardLayout m_layout;
    Navigation m_navigation;
    QStringList m_calls;
    AppView m_app{model(),
                  m_navigation,
                  m_shortcuts,
                  m_layout,
                  {u"1.2.3"_s, u"/home/user"_s},
                  {.openLog = [this] { m_calls.append(u"log"_s); },
                   .openMicrophoneSettings = [this] { m_calls.append(u"microphone"_s); },
                   .pickFolders = [](auto &&) {}}};
};

} // namespace palomet::test
