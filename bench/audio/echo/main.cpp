#include "bench/audio/echo/PlainCanceller.h"
#include "bench/audio/echo/Table.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <functional>

// Takes every scenario past the canceller, through the library's canceller as it comes, and through ours, and writes
// one Markdown table of what the backend hears. The figures are the same at every run, but for the time taken.

using namespace palomet;
using namespace palomet::bench;

namespace {

using Create = std::function<std::unique_ptr<EchoCanceller>()>;

struct Way {
    std::string name;
    Create create;
};

std::vector<Way> ways() {
    std::vector<Way> all{{"raw", [] { return nullptr; }}};
    if (createPlainCanceller())
        all.push_back({"plain", createPlainCanceller});
    all.push_back({"ours", [] {
                       auto canceller = EchoCanceller::create();
                       return canceller ? std::move(*canceller) : nullptr;
                   }});
    return all;
}

/// The user's sentences as they were heard, with a little of what was around them.
std::vector<Utterance> utterancesOf(const Recording &recording, const Scenario &scenario, const Signal &heard) {
    constexpr double before = 0.1;
    constexpr double after = 0.2;
    std::vector<Utterance> utterances;
    for (const auto &[text, from, to] : recording.nearSentences) {
        const auto begin = std::min(samplesIn(scenario.farAlone + from - before, heardRate), heard.size());
        const auto end = std::min(samplesIn(scenario.farAlone + to + after, heardRate), heard.size());
        utterances.push_back({Signal(heard.begin() + static_cast<std::ptrdiff_t>(begin),
                                     heard.begin() + static_cast<std::ptrdiff_t>(end)),
                              text});
    }
    return utterances;
}

/// Fills the columns, and `nearEnd` with what would be heard were there no echo.
std::optional<Failure> run(std::uint32_t set, std::vector<Column> &columns, std::vector<Utterance> &nearEnd) {
    const auto all = ways();
    for (const auto &way : all)
        columns.push_back({way.name, {}});
    Speaker speaker;
    for (const auto &scenario : scenarios(set)) {
        std::fprintf(stderr, "%s\n", scenario.name.c_str());
        const auto recording = record(scenario, speaker);
        if (!recording)
            return Failure{recording.reason()};
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto canceller = all[i].create();
            const auto processed = process(*recording, scenario, canceller.get());
            columns[i].outcomes.push_back({scenario, measure(*recording, scenario, processed),
                                           processed.microsecondsAFrame,
                                           utterancesOf(*recording, scenario, processed.samples), 0});
        }
        const auto alone = utterancesOf(*recording, scenario, asHeard(recording->nearEnd));
        nearEnd.insert(nearEnd.end(), alone.begin(), alone.end());
    }
    return std::nullopt;
}

/// Of the words said, in per cent.
Result<double> wordErrors(const std::vector<Utterance> &utterances) {
    const auto counts = countWords(utterances);
    if (!counts)
        return Failure{counts.reason()};
    WordCount sum;
    for (const auto &count : *counts) {
        sum.said += count.said;
        sum.wrong += count.wrong;
    }
    return 100.0 * sum.wrong / sum.said;
}

std::optional<Failure> countWordErrors(std::vector<Column> &columns) {
    for (auto &column : columns) {
        for (auto &outcome : column.outcomes) {
            const auto errors = wordErrors(outcome.utterances);
            if (!errors)
                return Failure{errors.reason()};
            outcome.wordErrors = *errors;
        }
    }
    return std::nullopt;
}

int fail(const QString &reason) {
    std::fprintf(stderr, "echo-bench: %s\n", qPrintable(reason));
    return 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser arguments;
    arguments.setApplicationDescription(QStringLiteral("Measures the echo canceller."));
    arguments.addHelpOption();
    const QCommandLineOption setOption(QStringLiteral("set"), QStringLiteral("Which rooms, sentences and voices."),
                                       QStringLiteral("number"), QStringLiteral("1"));
    const QCommandLineOption detailsOption(QStringLiteral("details"),
                                           QStringLiteral("Every scenario's own figures too."));
    arguments.addOptions({setOption, detailsOption});
    arguments.process(application);
    const auto set = arguments.value(setOption).toUInt();
    if (set == 0)
        return fail(QStringLiteral("sets are numbered from 1"));

    std::vector<Column> columns;
    std::vector<Utterance> nearEnd;
    if (const auto failure = run(set, columns, nearEnd))
        return fail(failure->reason);
    std::optional<double> nearEndWordErrors;
    if (isRecogniserInstalled()) {
        if (const auto failure = countWordErrors(columns))
            return fail(failure->reason);
        const auto errors = wordErrors(nearEnd);
        if (!errors)
            return fail(errors.reason());
        nearEndWordErrors = *errors;
    }
    writeTable(columns, nearEndWordErrors);
    if (arguments.isSet(detailsOption))
        writeDetails(columns);
    return 0;
}
