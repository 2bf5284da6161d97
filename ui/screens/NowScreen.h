#pragma once

#include "ui/screens/ConversationRows.h"
#include "ui/screens/NowShown.h"
#include "ui/screens/Screen.h"

#include <QtQml/qqml.h>

#include <chrono>

namespace palomet {

/// The now pane, the live view of the voice loop: what it shows, and the request that is being typed there, the only
/// state of its own.
class NowScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(palomet::NowShown shown READ shown NOTIFY changed FINAL)
    Q_PROPERTY(QAbstractItemModel *rows READ rows CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *draftRows READ draftRows CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *heardRows READ heardRows CONSTANT FINAL)
    /// The input's level while hearing, the output's while speaking. It changes only while the screen is active.
    Q_PROPERTY(double level READ level NOTIFY levelChanged FINAL)
    Q_PROPERTY(QString draft READ draft WRITE setDraft NOTIFY draftChanged FINAL)

public:
    explicit NowScreen(PalometModel &model);

    [[nodiscard]] const NowShown &shown() const { return m_shown; }
    [[nodiscard]] QAbstractItemModel *rows() { return &m_rows; }
    [[nodiscard]] QAbstractItemModel *draftRows() { return &m_draftRows; }
    [[nodiscard]] QAbstractItemModel *heardRows() { return &m_heardRows; }
    [[nodiscard]] double level() const;

    /// The typed text.
    [[nodiscard]] const QString &draft() const { return m_draft; }
    void setDraft(const QString &draft);

    /// Sends the typed text and empties the field. A blank text is not sent, and none while the model is busy; it
    /// stays.
    Q_INVOKABLE void send();
    Q_INVOKABLE void newConversation() { model().newConversation(); }
    Q_INVOKABLE void stop() { model().stop(); }
    Q_INVOKABLE void listen() { model().listen(); }
    Q_INVOKABLE void act() { model().act(); }
    Q_INVOKABLE void clearDraft() { model().clearDraft(); }

Q_SIGNALS:
    void changed();
    void levelChanged();
    void draftChanged();

protected:
    void updateAll() override;

private:
    [[nodiscard]] NowShown gathered() const;
    void showTimings(NowShown &shown) const;
    [[nodiscard]] QString noteOf(LoopState state) const;
    void updateShown();
    void updateHeard();
    /// Shows all times anew after a change of the time zone.
    void updateClocks();

    NowShown m_shown;
    ConversationRows m_rows;
    DraftRows m_draftRows;
    HeardRows m_heardRows;
    QString m_draft;
    std::chrono::milliseconds m_offset{0};
};

} // namespace palomet
