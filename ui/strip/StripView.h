#pragma once

#include "model/PalometModel.h"

#include <QObject>
#include <QtQml/qqml.h>

#include <functional>

namespace palomet {

/// What the strip shows. It follows the model only while the strip can be seen. Main thread only; the model outlives
/// it.
class StripView final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, the strip's.")
    Q_PROPERTY(QString loopState READ loopState NOTIFY changed FINAL)
    Q_PROPERTY(QString word READ word NOTIFY changed FINAL)
    Q_PROPERTY(QString line READ line NOTIFY changed FINAL)
    Q_PROPERTY(bool isStoppable READ isStoppable NOTIFY changed FINAL)
    Q_PROPERTY(QString stopKey READ stopKey NOTIFY changed FINAL)
    Q_PROPERTY(double level READ level NOTIFY levelChanged FINAL)

public:
    /// A click calls `open`.
    StripView(PalometModel &model, std::function<void()> open);

    void setShown(bool isShown);

    [[nodiscard]] QString loopState() const { return rawValue(m_model.state()); }
    [[nodiscard]] QString word() const { return palomet::word(m_model.state()); }
    [[nodiscard]] QString line() const;
    /// Whether there is something to stop now.
    [[nodiscard]] bool isStoppable() const { return m_model.isStoppable(); }
    /// The key that stops; empty where none does, and a click has to.
    [[nodiscard]] const QString &stopKey() const { return m_stopKey; }
    void setStopKey(const QString &words);
    /// The output's level while speaking, the input's otherwise.
    [[nodiscard]] double level() const;

    Q_INVOKABLE void open() { m_open(); }
    Q_INVOKABLE void stop() { m_model.stop(); }

Q_SIGNALS:
    void changed();
    void levelChanged();

private:
    PalometModel &m_model;
    const std::function<void()> m_open;
    QString m_stopKey = QString::fromLatin1("esc");
    bool m_isShown = false;
};

} // namespace palomet
