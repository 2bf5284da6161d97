#pragma once

#include "ui/screens/BrainScreen.h"
#include "ui/screens/HistoryScreen.h"
#include "ui/screens/ListeningScreen.h"
#include "ui/screens/NowScreen.h"
#include "ui/screens/VoiceScreen.h"
#include "ui/shell/Navigation.h"

#include <functional>

namespace palomet {

/// What the window does outside of itself.
struct Outside {
    std::function<void()> openLog = [] {};
    std::function<void()> openMicrophoneSettings = [] {};
    FolderPicker pickFolders = [](auto &&) {};
};

/// Everything that the window shows: the sidebar, the header of the selected pane, and its screen. Main thread only;
/// all arguments outlive it.
class AppView final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, the window's.")
    Q_PROPERTY(palomet::Navigation *navigation READ navigation CONSTANT FINAL)
    /// The pane that shows. It changes after its screen is up to date; `navigation.pane` changes before.
    Q_PROPERTY(palomet::Navigation::Pane pane READ pane NOTIFY paneChanged FINAL)
    Q_PROPERTY(QString version READ version CONSTANT FINAL)
    Q_PROPERTY(QVariantList groups READ groups CONSTANT FINAL)
    Q_PROPERTY(QString title READ title NOTIFY paneChanged FINAL)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY paneChanged FINAL)
    Q_PROPERTY(QString historyBadge READ historyBadge NOTIFY historyBadgeChanged FINAL)
    Q_PROPERTY(bool isMicOn READ isMicOn NOTIFY isMicOnChanged FINAL)
    Q_PROPERTY(palomet::NowScreen *now READ now CONSTANT FINAL)
    Q_PROPERTY(palomet::HistoryScreen *history READ history CONSTANT FINAL)
    Q_PROPERTY(palomet::ListeningScreen *listening READ listening CONSTANT FINAL)
    Q_PROPERTY(palomet::VoiceScreen *voice READ voice CONSTANT FINAL)
    Q_PROPERTY(palomet::BrainScreen *brain READ brain CONSTANT FINAL)

public:
    struct Details {
        QString version; ///< The program's; empty in a build that has none.
        QString home;    ///< The user's home folder.
    };

    AppView(PalometModel &model, Navigation &navigation, Shortcuts &shortcuts, const KeyboardLayout &layout,
            Details details, Outside outside);

    /// Whether the window can be seen: only then the selected screen follows the model.
    void setShown(bool isShown);
    [[nodiscard]] bool isShown() const { return m_isShown; }

    [[nodiscard]] Navigation *navigation() const { return &m_navigation; }
    [[nodiscard]] Pane pane() const { return m_navigation.pane(); }
    /// As the sidebar says it; "dev" in a build that has none.
    [[nodiscard]] QString version() const;
    /// The sidebar's groups: each a title and the panes in it, with title and icon.
    [[nodiscard]] QVariantList groups() const;
    [[nodiscard]] QString title() const { return palomet::title(m_navigation.pane()); }
    [[nodiscard]] QString subtitle() const { return palomet::subtitle(m_navigation.pane()); }
    /// How many past conversations there are; empty when there is none.
    [[nodiscard]] QString historyBadge() const;
    [[nodiscard]] bool isMicOn() const { return m_model.isMicOn(); }
    [[nodiscard]] NowScreen *now() { return &m_now; }
    [[nodiscard]] HistoryScreen *history() { return &m_history; }
    [[nodiscard]] ListeningScreen *listening() { return &m_listening; }
    [[nodiscard]] VoiceScreen *voice() { return &m_voice; }
    [[nodiscard]] BrainScreen *brain() { return &m_brain; }

    /// Opens the desktop's microphone settings, unless the microphone is on.
    Q_INVOKABLE void fixMicrophone();

Q_SIGNALS:
    void paneChanged();
    void historyBadgeChanged();
    void isMicOnChanged();

private:
    [[nodiscard]] Screen &screen(Pane pane);
    void updateScreens();

    PalometModel &m_model;
    Navigation &m_navigation;
    const Details m_details;
    const Outside m_outside;
    bool m_isShown = false;
    NowScreen m_now;
    HistoryScreen m_history;
    ListeningScreen m_listening;
    VoiceScreen m_voice;
    BrainScreen m_brain;
};

} // namespace palomet
