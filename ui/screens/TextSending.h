#pragma once

#include "model/PalometModel.h"
#include "ui/screens/TextSetting.h"

#include <QJsonValue>
#include <QObject>

#include <functional>

namespace palomet {

/// Sends each committed text of a setting, and settles it once the backend has answered with its state. While the
/// backend is away nothing is settled: the text stays, and is sent once more when the backend is back. Main thread
/// only; the model and the setting outlive it.
class TextSending final : public QObject {
    Q_OBJECT

public:
    using Encode = std::function<QJsonValue(const QString &text)>;

    /// `key` is the setting's name in the settings command; `encode` makes its value from a text.
    TextSending(PalometModel &model, TextSetting &setting, QString key, Encode encode, QObject *parent);

private:
    void send();
    void changeSettled(const QString &key);
    void snapshotCame();

    PalometModel &m_model;
    TextSetting &m_setting;
    const QString m_key;
    const Encode m_encode;
    int m_underWay = 0;
    bool m_isLost = false;
    bool m_wasAway = false; ///< The backend, since the newest text was sent.
    bool m_wasSentAgain = false;
};

} // namespace palomet
