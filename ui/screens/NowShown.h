#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

namespace palomet {

/// What the now pane shows outside of its lists. A value that is not known is empty; the notes are words.
struct NowShown {
    Q_GADGET
    QML_VALUE_TYPE(nowShown)
    Q_PROPERTY(QString loopState MEMBER loopState FINAL)
    Q_PROPERTY(QString stateWord MEMBER stateWord FINAL)
    Q_PROPERTY(QString stateNote MEMBER stateNote FINAL)
    Q_PROPERTY(QString microphone MEMBER microphone FINAL)
    Q_PROPERTY(QString microphoneNote MEMBER microphoneNote FINAL)
    Q_PROPERTY(QString session MEMBER session FINAL)
    Q_PROPERTY(QString sessionNote MEMBER sessionNote FINAL)
    Q_PROPERTY(QString cost MEMBER cost FINAL)
    Q_PROPERTY(QString costNote MEMBER costNote FINAL)
    Q_PROPERTY(QString transcription MEMBER transcription FINAL)
    Q_PROPERTY(QString transcriptionNote MEMBER transcriptionNote FINAL)
    Q_PROPERTY(QString brain MEMBER brain FINAL)
    Q_PROPERTY(QString voice MEMBER voice FINAL)
    Q_PROPERTY(QString untilHeard MEMBER untilHeard FINAL)
    Q_PROPERTY(QString untilHeardNote MEMBER untilHeardNote FINAL)
    Q_PROPERTY(QString emptyText MEMBER emptyText FINAL)
    Q_PROPERTY(QString rememberedText MEMBER rememberedText FINAL)
    Q_PROPERTY(QString draftNote MEMBER draftNote FINAL)

public:
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

    bool operator==(const NowShown &) const = default;
};

} // namespace palomet
