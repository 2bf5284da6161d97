#include "model/Snapshot.h"

#include <array>
#include <charconv>
#include <cmath>

namespace palomet {

namespace {

/// The shortest decimal text that reads back as the same number, always with a decimal point or an exponent: "5.0",
/// "1731700000123.0", "1e-05". Positional as long as every digit it shows means something.
QString decimalText(double value) {
    const double magnitude = std::abs(value);
    const bool isPositional = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 0x1p54);
    std::array<char, 32> buffer;
    const auto format = isPositional ? std::chars_format::fixed : std::chars_format::scientific;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    QString text = QString::fromLatin1(buffer.data(), end - buffer.data());
    if (isPositional && !text.contains(u'.'))
        text += u".0";
    return text;
}

} // namespace

QString Snapshot::Row::id() const {
    return decimalText(at) + u'-' + role;
}

QString Snapshot::Heard::id() const {
    return decimalText(at) + u'-' + text;
}

QString Snapshot::DraftEntry::id() const {
    return decimalText(at);
}

} // namespace palomet
