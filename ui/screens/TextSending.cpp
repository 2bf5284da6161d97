#include "ui/screens/TextSending.h"

#include <utility>

namespace palomet {

TextSending::TextSending(PalometModel &model, TextSetting &setting, QString key, Encode encode, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_setting(setting)
    , m_key(std::move(key))
    , m_encode(std::move(encode)) {
    connect(&m_setting, &TextSetting::asked, this, [this] {
        m_isLost = false;
        m_wasSentAgain = false;
        send();
    });
    connect(&m_model, &PalometModel::changeSettled, this, &TextSending::changeSettled);
    connect(&m_model, &PalometModel::snapshotChanged, this, &TextSending::snapshotCame);
}

void TextSending::send() {
    ++m_underWay;
    m_wasAway = !m_model.snapshot();
    m_model.set(m_key, m_encode(m_setting.text()));
}

void TextSending::changeSettled(const QString &key) {
    // Of several texts under way, the last one decides.
    if (key != m_key || m_underWay == 0 || --m_underWay > 0 || !m_setting.isBusy())
        return;
    // The state of a backend that was away in between says nothing of a text that came while it was.
    m_isLost = m_wasAway || !m_model.snapshot();
    if (m_isLost)
        snapshotCame();
    else
        m_setting.settle();
}

void TextSending::snapshotCame() {
    if (!m_model.snapshot()) {
        m_wasAway = true;
        return;
    }
    if (!std::exchange(m_isLost, false) || !m_setting.isBusy())
        return;
    // A backend that has gone away twice over a text does not get it a third time.
    if (std::exchange(m_wasSentAgain, true))
        m_setting.settle();
    else
        send();
}

} // namespace palomet
