#pragma once

#include "ui/screens/ConversationRows.h"
#include "ui/screens/Screen.h"

#include <QtQml/qqml.h>

#include <chrono>

namespace palomet {

/// The live view of the voice loop: what the now pane shows, and the request that is typed there, the one thing that it
/// holds itself.
class NowScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(QString loopState READ loopState NOTIFY changed FINAL)
    Q_PROPERTY(QString stateWord READ stateWord NOTIFY changed FINAL)
    Q_PROPERTY(QString stateNote READ stateNote NOTIFY changed FINAL)
    Q_PROPERTY(QString microphone READ microphone NOTIFY changed FINAL)
    Q_PROPERTY(QString microphoneNote READ microphoneNote NOTIFY changed FINAL)
    Q_PROPERTY(QString session READ session NOTIFY changed FINAL)
    Q_PROPERTY(QString sessionNote READ sessionNote NOTIFY changed FINAL)
    Q_PROPERTY(QString cost READ cost NOTIFY changed FINAL)
    Q_PROPERTY(QString costNote READ costNote NOTIFY changed FINAL)
    Q_PROPERTY(QString transcription READ transcription NOTIFY changed FINAL)
    Q_PROPERTY(QString transcriptionNote READ transcriptionNote NOTIFY changed FINAL)
    Q_PROPERTY(QString brain READ brain NOTIFY changed FINAL)
    Q_PROPERTY(QString voice READ voice NOTIFY changed FINAL)
    Q_PROPERTY(QString untilHeard READ untilHeard NOTIFY changed FINAL)
    Q_PROPERTY(QString untilHeardNote READ untilHeardNote NOTIFY changed FINAL)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY changed FINAL)
    Q_PROPERTY(QString rememberedText READ rememberedText NOTIFY changed FINAL)
    Q_PROPERTY(QString draftNote READ draftNote NOTIFY changed FINAL)
    Q_PROPERTY(QAbstractItemModel *rows READ rows CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *draftRows READ draftRows CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *heardRows READ heardRows CONSTANT FINAL)
    /// The input's level while hearing, the output's while speaking, as long as the screen can be seen.
    Q_PROPERTY(double level READ level NOTIFY levelChanged FINAL)
    Q_PROPERTY(QString draft READ draft WRITE setDraft NOTIFY draftChanged FINAL)

public:
    explicit NowScreen(PalometModel &model);

    // A value that is not known is empty; the notes are words.

    [[nodiscard]] QString loopState() const { return m_shown.loopState; }
    [[nodiscard]] QString stateWord() const { return m_shown.stateWord; }
    [[nodiscard]] QString stateNote() const { return m_shown.stateNote; }
    [[nodiscard]] QString microphone() const { return m_shown.microphone; }
    [[nodiscard]] QString microphoneNote() const { return m_shown.microphoneNote; }
    [[nodiscard]] QString session() const { return m_shown.session; }
    [[nodiscard]] QString sessionNote() const { return m_shown.sessionNote; }
    [[nodiscard]] QString cost() const { return m_shown.cost; }
    [[nodiscard]] QString costNote() const { return m_shown.costNote; }
    [[nodiscard]] QString transcription() const { return m_shown.transcription; }
    [[nodiscard]] QString transcriptionNote() const { return m_shown.transcriptionNote; }
    [[nodiscard]] QString brain() const { return m_shown.brain; }
    [[nodiscard]] QString voice() const { return m_shown.voice; }
    [[nodiscard]] QString untilHeard() const { return m_shown.untilHeard; }
    [[nodiscard]] QString untilHeardNote() const { return m_shown.untilHeardNote; }
    [[nodiscard]] QString emptyText() const { return m_shown.emptyText; }
    [[nodiscard]] QString rememberedText() const { return m_shown.rememberedText; }
    [[nodiscard]] QString draftNote() const { return m_shown.draftNote; }
    [[nodiscard]] QAbstractItemModel *rows() { return &m_rows; }
    [[nodiscard]] QAbstractItemModel *draftRows() { return &m_draftRows; }
    [[nodiscard]] QAbstractItemModel *heardRows() { return &m_heardRows; }
    [[nodiscard]] double level() const;

    /// The typed text.
    [[nodiscard]] const QString &draft() const { return m_draft; }
    void setDraft(const QString &draft);

    /// Sends the typed text and empties the field; blank text stays where it is, and all of it while the model is busy.
    Q_INVOKABLE void send();
    Q_INVOKABLE void act() { model().act(); }
    Q_INVOKABLE void clearDraft() { model().clearDraft(); }

Q_SIGNALS:
    void changed();
    void levelChanged();
    void draftChanged();

protected:
    void updateAll() override;

private:
    /// Everything that is shown outside of lists.
    struct Shown {
        QString loopState;
        QString stateWord;
        QString stateNote;
        QString microphone;
        QString microphoneNote;
        QString session;
        QString sessionNote;
        QString cost;
        QString costNote;
        QString transcription;
        QString transcriptionNote;
        QString brain;
        QString voice;
        QString untilHeard;
        QString untilHeardNote;
        QString emptyText;
        QString rememberedText;
        QString draftNote;

        bool operator==(const Shown &) const = default;
    };

    [[nodiscard]] Shown shown() const;
    void showTimings(Shown &shown) const;
    [[nodiscard]] QString noteOf(LoopState state) const;
    void updateShown();
    void updateHeard();
    /// In another time zone, every hour is another.
    void updateClocks();

    Shown m_shown;
    ConversationRows m_rows;
    DraftRows m_draftRows;
    HeardRows m_heardRows;
    QString m_draft;
    std::chrono::milliseconds m_offset{0};
};

} // namespace palomet
