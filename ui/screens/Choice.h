#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <span>
#include <vector>

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

/// Choices that are called what they are.
[[nodiscard]] std::vector<Choice> plainChoices(const std::vector<QString> &names);

/// Durations to choose from: each is sent as whole milliseconds.
[[nodiscard]] std::vector<Choice> secondsChoices(std::span<const double> seconds);

/// The milliseconds that a choice stands for; the default end of speech when it is no number.
[[nodiscard]] int millisecondsFrom(const QString &id);

} // namespace palomet
