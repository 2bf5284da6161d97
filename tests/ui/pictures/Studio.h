#pragma once

#include "model/PalometModel.h"
#include "shortcuts/Shortcuts.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/ManualScheduler.h"
#include "ui/UiEngine.h"
#include "ui/shell/SettingsWindow.h"

#include <QSettings>
#include <QTemporaryDir>

class QQuickWindow;

namespace palomet::test {

/// Takes pictures of everything that can be seen, always at the same hour, so that they can be laid beside others.
class Studio {
public:
    /// `folder` is where the pictures go.
    Studio(const QString &resources, QString folder);
    ~Studio();

    /// Window, strip and recorder in that language.
    void takeAll(const QString &language);

    /// A QML file; whether there is a picture.
    bool takeFile(const QString &qml, const QString &path);

    /// Of a picture of that name.
    [[nodiscard]] QString path(const QString &name) const;

private:
    void takePanes(const QString &language);
    /// The panes once more, as a desktop wants them that asks for more contrast.
    void takeRaised(const QString &language);
    /// The now pane with conversations of several lengths, in windows of several sizes, as it opens and scrolled
    /// halfway.
    void takeConversations(const QString &language);
    void takeSelection(const QString &language);
    void takeFolderDialog(const QString &language);
    void takeRecorder(const QString &language);
    void takeStrip(const QString &language);
    /// Everything that was set in motion comes to rest: fades are over, rows are made, texts are laid out.
    static void settle();
    void fill();
    void converse(int rows);
    void empty();
    void take(QQuickWindow &window, const QString &name);

    const QString m_resources;
    const QString m_folder;
    QTemporaryDir m_home;
    ManualScheduler m_scheduler;
    FakeMicrophonePermission m_permission{MicrophoneStatus::Authorized};
    std::unique_ptr<PalometModel> m_model;
    QSettings m_settings;
    Shortcuts m_shortcuts;
    NoKeyboardLayout m_layout;
    Navigation m_navigation;
    UiEngine m_ui;
};

} // namespace palomet::test
