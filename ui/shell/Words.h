#pragma once

#include <QObject>
#include <QtQml/qqml.h>

namespace palomet {

/// The texts of the program for QML, looked up each time they are shown.
class Words : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// The text of a key as it stands.
    Q_INVOKABLE [[nodiscard]] QString t(const QString &key) const;
};

} // namespace palomet
