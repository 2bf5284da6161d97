#pragma once

#include <QObject>
#include <QtQml/qqml.h>

class QJSEngine;
class QQmlEngine;

namespace palomet {

/// What the desktop asks of the interface; one an engine. Everything that moves asks here first whether it may, and the
/// palette whether its colours have to be stronger.
class Wishes : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isMotionReduced READ isMotionReduced NOTIFY changed FINAL)
    Q_PROPERTY(bool isContrastRaised READ isContrastRaised NOTIFY changed FINAL)

public:
    static Wishes *create(QQmlEngine *engine, QJSEngine *);
    /// The engine's own, which lives as long as the engine.
    static Wishes &of(QQmlEngine &engine);

    [[nodiscard]] bool isMotionReduced() const { return m_isMotionReduced; }
    void setMotionReduced(bool isReduced);
    [[nodiscard]] bool isContrastRaised() const { return m_isContrastRaised; }
    void setContrastRaised(bool isRaised);

Q_SIGNALS:
    void changed();

private:
    explicit Wishes(QObject *parent)
        : QObject(parent) {}
    void assign(bool &member, bool value);

    bool m_isMotionReduced = false;
    bool m_isContrastRaised = false;
};

} // namespace palomet
