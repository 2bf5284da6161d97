#pragma once

#include <QObject>
#include <QString>

namespace palomet {

/// One thing that can be chosen: what is sent when it is, and what it is called.
struct Choice {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString title MEMBER title)

public:
    QString id;
    QString title;

    bool operator==(const Choice &) const = default;
};

} // namespace palomet
