#pragma once

#include "localization/Localization.h"

#include <QLocale>
#include <QString>
#include <QStringView>

#include <span>
#include <vector>

namespace palomet {

/// A placeholder in a text: `%@` a text, `%d` (`%ld`, `%i`, `%u`) an integer, `%f` or `%.2f` a number with so
/// many decimals, `%%` a percent sign. `%2$@` asks for the second argument; without a number each asks for the next
/// one.
struct Directive {
    enum class Kind { Text, Integer, Decimal, Percent };

    Kind kind;
    qsizetype begin;    ///< of its "%" in the text
    qsizetype length;   ///< in UTF-16 units
    qsizetype argument; ///< index of the argument asked for; -1 for a percent sign
    int decimals;       ///< of a decimal

    bool operator==(const Directive &) const = default;
};

/// The directives of a text from its left to its right. Anything else behind a "%" is none and stands for itself.
std::vector<Directive> directivesOf(QStringView text);

/// The text with its arguments put in, numbers as the locale writes them, grouped. Each argument is written as what it
/// is, a text isolated: one asked for as a number stays the text. A directive without its argument stays as it stands,
/// an argument without a directive is left out, and what an argument brings with it is never read as a directive.
QString formatted(const QString &text, std::span<const FormatArgument> arguments, const QLocale &locale);

/// The text as a part of another one: it turns the direction of what stands beside it neither by its letters nor by its
/// marks of direction, complete or not. A text that turns nothing is as it was.
QString isolated(const QString &text);

} // namespace palomet
