#pragma once

#include "model/PalometModel.h"
#include "ui/screens/Setting.h"

#include <QJsonValue>
#include <QObject>

#include <functional>

namespace palomet {

/// Sends what is committed to a line of text, and settles it once the backend has answered with its state: then its
/// value is what shows. While the backend is away nothing is settled: what was committed stays, and is sent once more
/// when the backend is back. Main thread only; the model and the setting outlive it.
class TextSending final : public QObject {
    Q_OBJECT

public:
    using Encode = std::function<QJsonValue(const QString &text)>;

    /// `key` is the setting's name, `encode` makes its value of a text.
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
    bool m_wasSentAgain = false;
};

} // namespace palomet
