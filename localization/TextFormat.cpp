#include "localization/TextFormat.h"

#include <optional>

namespace palomet {

namespace {

/// Reads a text from its left to its right, one UTF-16 unit after the other.
class Cursor {
public:
    Cursor(QStringView text, qsizetype at)
        : m_text(text)
        , m_at(at) {}

    [[nodiscard]] qsizetype at() const { return m_at; }

    bool take(char16_t wanted) {
        const bool isThere = m_at < m_text.size() && m_text[m_at] == wanted;
        m_at += isThere;
        return isThere;
    }

    /// One or two digits: more arguments or decimals than that are nobody's wish.
    std::optional<int> takeNumber() {
        std::optional<int> number;
        for (int digits = 0; digits < 2 && m_at < m_text.size(); ++digits) {
            const int digit = m_text[m_at].unicode() - u'0';
            if (digit < 0 || digit > 9)
                break;
            number = number.value_or(0) * 10 + digit;
            ++m_at;
        }
        return number;
    }

private:
    QStringView m_text;
    qsizetype m_at;
};

constexpr int defaultDecimals = 6;
constexpr QChar firstStrongIsolate(0x2068);
constexpr QChar popIsolate(0x2069);

bool isIsolate(QChar::Direction direction) {
    return direction == QChar::DirLRI || direction == QChar::DirRLI || direction == QChar::DirFSI;
}

/// Whether a character of that kind can turn what stands beside it.
bool turnsDirection(QChar::Direction direction) {
    switch (direction) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirPDI:
        return true;
    default:
        return isIsolate(direction);
    }
}

/// The directive whose "%" stands at `begin`, if it is one. One that names no argument takes the next one, and moves
/// `next`.
std::optional<Directive> directiveAt(QStringView text, qsizetype begin, qsizetype &next) {
    using Kind = Directive::Kind;
    Cursor cursor(text, begin + 1);
    if (cursor.take(u'%'))
        return Directive{Kind::Percent, begin, 2, -1, 0};

    const auto position = cursor.takeNumber();
    if (position && (*position == 0 || !cursor.take(u'$')))
        return std::nullopt;
    const auto directive = [&](Kind kind, int decimals = 0) {
        return Directive{kind, begin, cursor.at() - begin, position ? *position - 1 : next++, decimals};
    };
    if (cursor.take(u'@'))
        return directive(Kind::Text);

    std::optional<int> decimals;
    if (cursor.take(u'.')) {
        decimals = cursor.takeNumber();
        if (!decimals)
            return std::nullopt;
    }
    for (int lengths = 0; lengths < 2 && cursor.take(u'l'); ++lengths) {
    }
    if (cursor.take(u'f'))
        return directive(Kind::Decimal, decimals.value_or(defaultDecimals));
    if (!decimals && (cursor.take(u'd') || cursor.take(u'i') || cursor.take(u'u')))
        return directive(Kind::Integer);
    return std::nullopt;
}

QString written(const FormatArgument &argument, const Directive &directive, const QLocale &locale) {
    struct Writer {
        const Directive &directive;
        const QLocale &locale;

        QString operator()(const QString &text) const { return isolated(text); }
        QString operator()(qint64 number) const { return locale.toString(number); }
        QString operator()(double number) const {
            const bool asksForDecimals = directive.kind == Directive::Kind::Decimal;
            return locale.toString(number, 'f', asksForDecimals ? directive.decimals : QLocale::FloatingPointShortest);
        }
    };
    return std::visit(Writer{directive, locale}, argument.value());
}

} // namespace

QString isolated(const QString &text) {
    QString result;
    int open = 0;
    bool turns = false;
    const auto close = [&] {
        while (open > 0) {
            result += popIsolate;
            --open;
        }
    };
    for (const char32_t character : text.toUcs4()) {
        const auto direction = QChar::direction(character);
        turns = turns || turnsDirection(direction);
        // An end without a beginning would end ours.
        if (direction == QChar::DirPDI && open == 0)
            continue;
        if (isIsolate(direction))
            ++open;
        else if (direction == QChar::DirPDI)
            --open;
        if (direction == QChar::DirB) {
            // Nothing is open beyond a paragraph.
            close();
            result += popIsolate;
        }
        result += QChar::fromUcs4(character);
        if (direction == QChar::DirB)
            result += firstStrongIsolate;
    }
    close();
    return turns ? firstStrongIsolate + result + popIsolate : text;
}

std::vector<Directive> directivesOf(QStringView text) {
    std::vector<Directive> found;
    qsizetype next = 0;
    for (auto at = text.indexOf(u'%'); at >= 0;) {
        const auto directive = directiveAt(text, at, next);
        if (directive)
            found.push_back(*directive);
        at = text.indexOf(u'%', directive ? at + directive->length : at + 1);
    }
    return found;
}

QString formatted(const QString &text, std::span<const FormatArgument> arguments, const QLocale &locale) {
    QString result;
    qsizetype copied = 0;
    for (const auto &directive : directivesOf(text)) {
        const auto isPercent = directive.kind == Directive::Kind::Percent;
        const auto index = static_cast<std::size_t>(directive.argument);
        if (!isPercent && index >= arguments.size())
            continue;
        result += QStringView(text).sliced(copied, directive.begin - copied);
        result += isPercent ? QStringLiteral("%") : written(arguments[index], directive, locale);
        copied = directive.begin + directive.length;
    }
    return result += QStringView(text).sliced(copied);
}

} // namespace palomet
