#include "audio/echo/MaskWeights.h"
#include "bench/audio/echo/Path.h"
#include "bench/audio/echo/PlainCanceller.h"
#include "bench/audio/echo/Table.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

// Takes every scenario past the canceller, through the library's canceller as it comes, and through ours, and writes
// one Markdown table of what the backend hears. The figures are the same at every run, but for the time taken.

using namespace palomet;
using namespace palomet::bench;
using namespace Qt::StringLiterals;

namespace {

struct Way {
    std::string name;
    std::function<Processed(const Recording &, const Scenario &)> process;
};

std::unique_ptr<EchoCanceller> createOurs() {
    auto canceller = EchoCanceller::create();
    return canceller ? std::move(*canceller) : nullptr;
}

/// All of them, the mask's with that of a folder.
std::vector<Way> ways(const QString &maskFolder) {
    std::vector<Way> all{
        {"raw", [](const auto &recording, const auto &scenario) { return process(recording, scenario, nullptr); }}};
    if (createPlainCanceller())
        all.push_back({"plain", [](const auto &recording, const auto &scenario) {
                           return process(recording, scenario, createPlainCanceller().get());
                       }});
    all.push_back({"ours", [](const auto &recording, const auto &scenario) {
                       return process(recording, scenario, createOurs().get());
                   }});
    all.push_back({"path", [](const auto &recording, const auto &scenario) {
                       return processOnPath(recording, scenario, createOurs());
                   }});
    const auto mask = echo::MaskWeights::read(maskFolder);
    if (!mask || !EchoCanceller::takesMask())
        return all;
    const auto createMasked = [weights = *mask] {
        auto canceller = EchoCanceller::create(weights);
        return canceller ? std::move(*canceller) : nullptr;
    };
    all.push_back({"mask", [=](const auto &recording, const auto &scenario) {
                       return process(recording, scenario, createMasked().get());
                   }});
    all.push_back({"mask, path", [=](const auto &recording, const auto &scenario) {
                       return processOnPath(recording, scenario, createMasked());
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

/// Writes what the backend would get as 16-bit samples to a file in `folder`, and what is to be heard in it to a line
/// of its index: seconds from which on and until which the user's sentences are said.
bool keep(const QDir &folder, const std::string &way, const Recording &recording, const Outcome &outcome,
          const Signal &samples) {
    const auto name =
        QString::fromStdString(way + " " + outcome.scenario.name).replace(u' ', u'-').remove(u':') + u".raw"_s;
    QFile sound(folder.filePath(name));
    QFile index(folder.filePath(u"index.jsonl"_s));
    if (!sound.open(QFile::WriteOnly) || !index.open(QFile::Append))
        return false;
    std::vector<std::int16_t> heard(samples.size());
    std::transform(samples.begin(), samples.end(), heard.begin(),
                   [](float sample) { return static_cast<std::int16_t>(std::lround(sample * 32767)); });
    sound.write(reinterpret_cast<const char *>(heard.data()), static_cast<qint64>(heard.size() * sizeof(heard[0])));
    const auto times = [&](const std::vector<Speaker::Sentence> &sentences) {
        QJsonArray said;
        for (const auto &[text, from, to] : sentences)
            said.append(QJsonArray{outcome.scenario.farAlone + from, outcome.scenario.farAlone + to});
        return said;
    };
    const auto &hardship = outcome.scenario.hardship;
    index.write(QJsonDocument(QJsonObject{{u"file"_s, name},
                                          {u"way"_s, QString::fromStdString(way)},
                                          {u"kind"_s, hardship ? QString::fromStdString(hardship->kind) : u"easy"_s},
                                          {u"said"_s, times(recording.nearSentences)},
                                          {u"others"_s, times(recording.otherSentences)}})
                    .toJson(QJsonDocument::Compact) +
                '\n');
    return true;
}

/// Fills the columns, and `nearEnd` with what would be heard were there no echo. Keeps all recordings in a folder if
/// one is named.
std::optional<Failure> run(const std::vector<Scenario> &chosen, const std::vector<Way> &all, bool isAlone,
                           const QString &folder, std::vector<Column> &columns, std::vector<Utterance> &nearEnd) {
    for (const auto &way : all)
        columns.push_back({way.name, {}});
    Speaker speaker;
    for (const auto &scenario : chosen) {
        std::fprintf(stderr, "%s\n", scenario.name.c_str());
        auto recording = record(scenario, speaker);
        if (!recording)
            return Failure{recording.reason()};
        if (isAlone)
            *recording = nearEndAlone(std::move(*recording));
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto processed = all[i].process(*recording, scenario);
            columns[i].outcomes.push_back({scenario, measure(*recording, scenario, processed),
                                           processed.microsecondsAFrame,
                                           utterancesOf(*recording, scenario, processed.samples), 0});
            if (!folder.isEmpty() &&
                !keep(QDir(folder), all[i].name, *recording, columns[i].outcomes.back(), processed.samples))
                return Failure{u"cannot write to "_s + folder};
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
    arguments.setApplicationDescription(u"Measures the echo canceller."_s);
    arguments.addHelpOption();
    const QCommandLineOption setOption(u"set"_s, u"Which rooms, sentences and voices."_s, u"number"_s, u"1"_s);
    const QCommandLineOption detailsOption(u"details"_s, u"Every scenario's own figures too."_s);
    const QCommandLineOption hardOption(u"hard"_s, u"What is hard for a canceller, so many recordings of each."_s,
                                        u"count"_s);
    const QCommandLineOption onlyOption(u"only"_s, u"The scenarios whose names contain one of these."_s, u"text"_s);
    const QCommandLineOption aloneOption(u"alone"_s,
                                         u"Only the user, without any echo: what the measure itself loses."_s);
    const QCommandLineOption keepOption(u"keep"_s, u"Keeps what is heard in this folder."_s, u"folder"_s);
    const QCommandLineOption maskOption(u"mask"_s, u"The mask of this folder, instead of the program's."_s, u"folder"_s,
                                        QStringLiteral(PALOMET_SOURCE_DIR "/resources"));
    const QCommandLineOption wordsOption(u"words"_s, u"Counts the words misheard of what is hard, too."_s);
    const QCommandLineOption wayOption(u"way"_s, u"The columns of these names alone."_s, u"name"_s);
    arguments.addOptions({setOption, detailsOption, hardOption, onlyOption, aloneOption, keepOption, maskOption,
                          wordsOption, wayOption});
    arguments.process(application);
    const auto set = arguments.value(setOption).toUInt();
    if (set == 0)
        return fail(u"sets are numbered from 1"_s);

    const bool isHard = arguments.isSet(hardOption);
    auto chosen = isHard ? hardScenarios(set, arguments.value(hardOption).toInt()) : scenarios(set);
    if (const auto only = arguments.values(onlyOption); !only.isEmpty())
        std::erase_if(chosen, [&](const Scenario &scenario) {
            return std::none_of(only.begin(), only.end(), [&](const QString &text) {
                return QString::fromStdString(scenario.name).contains(text);
            });
        });
    if (chosen.empty())
        return fail(u"no such scenarios"_s);

    auto all = ways(arguments.value(maskOption));
    if (const auto names = arguments.values(wayOption); !names.isEmpty())
        std::erase_if(all, [&](const Way &way) { return !names.contains(QString::fromStdString(way.name)); });
    if (all.empty())
        return fail(u"no such columns"_s);

    std::vector<Column> columns;
    std::vector<Utterance> nearEnd;
    if (const auto failure =
            run(chosen, all, arguments.isSet(aloneOption), arguments.value(keepOption), columns, nearEnd))
        return fail(failure->reason);
    std::optional<double> nearEndWordErrors;
    const bool areWordsCounted = isRecogniserInstalled() && (!isHard || arguments.isSet(wordsOption));
    if (areWordsCounted) {
        if (const auto failure = countWordErrors(columns))
            return fail(failure->reason);
        const auto errors = wordErrors(nearEnd);
        if (!errors)
            return fail(errors.reason());
        nearEndWordErrors = *errors;
    }
    if (isHard)
        writeKinds(columns, areWordsCounted);
    else
        writeTable(columns, nearEndWordErrors);
    if (arguments.isSet(detailsOption))
        writeDetails(columns);
    return 0;
}
