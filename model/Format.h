#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace palomet {

/// Turns the numbers and names of the backend's documents into the short texts that a user reads. Main thread only, as
/// everything that shows them. Nothing here fails: what no formatter can write is shown as plainly as can be, and an
/// instant that no calendar knows (not a number, or more than a hundred million days from 1970) is an empty text.
namespace format {

/// The region whose numbers, days and hours are shown.
struct Region {
    /// Language tags, "pt-BR"; their Unicode extensions choose digits ("-u-nu-deva") and calendar ("-u-ca-buddhist").
    QString numbers;
    QString dates;
    /// A zone's name, "America/Sao_Paulo"; empty for the one that the system is set to, and follows when that changes.
    QString timeZone;
    /// The clock that "today" is asked of.
    std::function<std::chrono::system_clock::time_point()> clock = &std::chrono::system_clock::now;
};

/// The user's region: by LC_ALL, else LC_NUMERIC or LC_TIME, else LANG; English where none names a language.
[[nodiscard]] Region systemRegion();

/// Makes the formatters. They know nothing but the region given: but for the system's time zone, no later change of the
/// environment reaches them.
/// The first text is written for the user's region if this is not called. Called again, it replaces the region (tests
/// do).
void load(Region region);

/// Of a range of fraction digits, least and most.
struct Digits {
    int least;
    int most;

    bool operator==(const Digits &) const = default;
};

/// The number with the separators of its region and so many fraction digits, halves rounded to the even digit.
[[nodiscard]] QString number(double value, Digits digits);

/// A duration in milliseconds as "2.5 s"; in whole seconds from ten on and where nothing is left over.
[[nodiscard]] QString seconds(double ms);

/// US dollars, "US$ 1.50"; below one cent with a third decimal.
[[nodiscard]] QString usd(double value);

/// What a conversation came to, "3 answers · US$ 0.02".
[[nodiscard]] QString outcome(qint64 answers, double costUsd);

/// A factor, "1.25×".
[[nodiscard]] QString speed(double value);

/// The hour of an instant (milliseconds since 1970), "17:05" in every region.
[[nodiscard]] QString clock(double ms);

/// "Today 17:05", "Yesterday 17:05", else day, month and hour as the region orders them.
[[nodiscard]] QString day(double ms);

/// How far the region's clocks are ahead of UTC. When that is not what it was, hours and days are to be written again.
[[nodiscard]] std::chrono::milliseconds offset(std::chrono::system_clock::time_point instant);

/// How long ago an instant was: a moment, minutes, or hours however many. What lies ahead is a moment ago.
[[nodiscard]] QString since(double ms, std::chrono::system_clock::time_point now);

/// A language model by its id: "claude-sonnet-4-5" is "Sonnet 4.5".
[[nodiscard]] QString model(QString id);

/// A text of several lines, or of many blanks, as one line.
[[nodiscard]] QString oneLine(const QString &text);

/// An input device without the words that say that it is a microphone: "Microphone (USB Audio)" is "USB Audio".
[[nodiscard]] QString device(QString name);

} // namespace format

} // namespace palomet
