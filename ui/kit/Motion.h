#pragma once

#include <QObject>
#include <QtQml/qqml.h>

class QJSEngine;
class QQmlEngine;

namespace palomet {

/// Whether the desktop asks for stillness; one an engine. Everything that moves asks here first.
class Motion : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isReduced READ isReduced NOTIFY isReducedChanged FINAL)

public:
    static Motion *create(QQmlEngine *engine, QJSEngine *);
    /// The engine's own, which lives as long as the engine.
    static Motion &of(QQmlEngine &engine);

    [[nodiscard]] bool isReduced() const { return m_isReduced; }
    void setReduced(bool isReduced);

Q_SIGNALS:
    void isReducedChanged();

private:
    explicit Motion(QObject *parent)
        : QObject(parent) {}

    bool m_isReduced = false;
};

} // namespace palomet
