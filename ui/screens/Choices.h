#pragma once

#include "model/Format.h"
#include "model/PalometModel.h"
#include "ui/screens/Choice.h"

#include <functional>
#include <optional>
#include <vector>

namespace palomet {

using namespace Qt::StringLiterals;

/// What a setting is one out of: how it is read and sent, and what there is to choose from.
struct Choices {
    QString key; ///< What the settings command calls the setting.
    /// What is chosen; none while that is not known.
    std::function<std::optional<Choice>(const PalometModel &model)> current;
    std::function<std::vector<Choice>(const PalometModel &model)> offered;
    /// A choice as it is sent.
    std::function<QJsonValue(const QString &id)> encoded = [](const QString &id) { return id; };
};

/// What stands where nothing is known.
inline const QString unknownValue = u"\u2014"_s;

/// The default end of speech in milliseconds, which is also sent for a time that is no whole number.
inline constexpr int defaultEndSilenceMs = 1'200;

/// Names that the backend offers: sent as they came, and shown as `title` has them, or as they came without one.
[[nodiscard]] Choices names(QString Snapshot::Settings::*member, std::vector<QString> Options::*offered,
                            QString (*title)(QString name) = nullptr);

/// As above; where the backend leaves the setting out, it is shown as the text of a key.
[[nodiscard]] Choices names(std::optional<QString> Snapshot::Settings::*member, const char *withoutKey,
                            std::vector<QString> Options::*offered, QString (*title)(QString name));

/// Durations in milliseconds, shown in seconds.
[[nodiscard]] Choices durations(double Snapshot::Settings::*member, const std::vector<double> &offered);

/// Durations in milliseconds, shown as `title` has them; `fallback` is the setting's value where the backend leaves it
/// out, and as long as nothing is known.
[[nodiscard]] Choices durations(std::optional<double> Snapshot::Settings::*member, double fallback,
                                const std::vector<double> &offered, QString (*title)(double ms) = &format::seconds);

} // namespace palomet
