#include "bench/audio/echo/Table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <numeric>

namespace palomet::bench {
namespace {

using Choice = std::function<bool(const Scenario &)>;
using Figure = std::function<std::optional<double>(const Outcome &)>;
using Summary = std::function<std::string(const std::vector<double> &sorted)>;

std::string number(double value, int decimals) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return std::string(text.data()) == "-0.0" ? "0.0" : text.data();
}

double mean(const std::vector<double> &values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

double median(const std::vector<double> &sorted) {
    return (sorted[(sorted.size() - 1) / 2] + sorted[sorted.size() / 2]) / 2;
}

std::string medianAndMost(const std::vector<double> &sorted) {
    return number(median(sorted), 1) + " / " + number(sorted.back(), 1);
}

std::string meanAndLeast(const std::vector<double> &sorted) {
    return number(mean(sorted), 1) + " / " + number(sorted.front(), 1);
}

std::string meanAlone(const std::vector<double> &sorted) {
    return number(mean(sorted), 1);
}

/// One row: a figure of the chosen scenarios, summed up for each column.
void writeRow(const std::string &name, const std::vector<Column> &columns, const Choice &choice, const Figure &figure,
              const Summary &summary, const char *mark = "") {
    std::printf("| %s |", name.c_str());
    for (const auto &column : columns) {
        std::vector<double> values;
        int never = 0;
        for (const auto &outcome : column.outcomes) {
            if (!choice(outcome.scenario))
                continue;
            const auto value = figure(outcome);
            if (value)
                values.push_back(*value);
            else
                ++never;
        }
        std::sort(values.begin(), values.end());
        if (values.empty())
            std::printf(" never |");
        else if (never > 0)
            std::printf(" %s, %d never |", summary(values).c_str(), never);
        else
            std::printf(" %s |", summary(values).c_str());
    }
    std::printf(" %s |\n", mark);
}

double lost(const Outcome &outcome) {
    return outcome.measures.lostPercent;
}
double erle(const Outcome &outcome) {
    return outcome.measures.erleDb;
}

Choice louderBy(double decibels) {
    return [decibels](const Scenario &scenario) { return scenario.signalToEcho == decibels; };
}

} // namespace

void writeTable(const std::vector<Column> &columns, std::optional<double> nearEndWordErrors) {
    std::printf("| |");
    for (const auto &column : columns)
        std::printf(" %s |", column.name.c_str());
    std::printf(" to reach |\n|---|");
    for (std::size_t i = 0; i <= columns.size(); ++i)
        std::printf("---|");
    std::printf("\n");

    const auto all = [](const Scenario &) { return true; };
    writeRow("near end lost, as loud as the echo, %: median / worst", columns, louderBy(0), lost, medianAndMost,
             "5 (median)");
    writeRow("near end lost, 6 dB louder, %", columns, louderBy(6), lost, medianAndMost);
    writeRow("near end lost, 6 dB softer, %", columns, louderBy(-6), lost, medianAndMost);
    writeRow("ERLE, dB: mean / worst", columns, all, erle, meanAndLeast, "33 (mean)");
    writeRow(
        "time to 20 dB, s: median / worst", columns, all,
        [](const Outcome &outcome) { return outcome.measures.secondsTo20Db; }, medianAndMost, "2 (median)");
    writeRow(
        "recovery from a delay jump, s", columns, [](const Scenario &scenario) { return scenario.jumpMs != 0; },
        [](const Outcome &outcome) { return outcome.measures.recoverySeconds; }, meanAlone);
    writeRow(
        "log-spectral distance of the near end, dB", columns, all,
        [](const Outcome &outcome) { return outcome.measures.spectralDistanceDb; }, meanAlone);
    if (nearEndWordErrors)
        writeRow(
            "word errors while both talk, % (near end alone: " + number(*nearEndWordErrors, 1) + ")", columns, all,
            [](const Outcome &outcome) { return outcome.wordErrors; }, meanAlone);
    for (const auto &special : columns.front().outcomes) {
        if (!special.scenario.isSpecial)
            continue;
        const auto isIt = [&](const Scenario &scenario) { return scenario.name == special.scenario.name; };
        writeRow(special.scenario.name + ": ERLE, dB", columns, isIt, erle, meanAlone);
        writeRow(special.scenario.name + ": near end lost, %", columns, isIt, lost, meanAlone);
    }
    writeRow(
        "CPU a frame of 10 ms, µs", columns, all, [](const Outcome &outcome) { return outcome.microsecondsAFrame; },
        meanAlone, "130");
}

void writeKinds(const std::vector<Column> &columns, bool hasWords) {
    std::printf("| |");
    for (const auto &column : columns)
        std::printf(" %s |", column.name.c_str());
    std::printf("\n|---|");
    for (std::size_t i = 0; i < columns.size(); ++i)
        std::printf("---|");
    std::printf("\n");

    const auto writeKind = [&](const std::string &name, const Choice &choice) {
        std::printf("| %s |", name.c_str());
        for (const auto &column : columns) {
            const auto figures = [&](const auto &figure) {
                std::vector<double> values;
                for (const auto &outcome : column.outcomes) {
                    if (choice(outcome.scenario))
                        values.push_back(figure(outcome));
                }
                std::sort(values.begin(), values.end());
                return values;
            };
            const auto loudest = figures([](const Outcome &outcome) { return outcome.measures.ownVoiceDb; }).back();
            std::printf(" %s; %s; %s", meanAndLeast(figures(erle)).c_str(), medianAndMost(figures(lost)).c_str(),
                        number(loudest, 0).c_str());
            if (hasWords)
                std::printf("; %s",
                            meanAlone(figures([](const Outcome &outcome) { return outcome.wordErrors; })).c_str());
            std::printf(" |");
        }
        std::printf("\n");
    };
    writeKind("all", [](const Scenario &) { return true; });
    std::string last;
    for (const auto &outcome : columns.front().outcomes) {
        const auto kind = outcome.scenario.hardship ? outcome.scenario.hardship->kind : outcome.scenario.name;
        if (std::exchange(last, kind) != kind)
            writeKind(kind, [&](const Scenario &scenario) {
                return scenario.hardship ? scenario.hardship->kind == kind : scenario.name == kind;
            });
    }
}

void writeDetails(const std::vector<Column> &columns) {
    for (const auto &column : columns) {
        std::printf("\n%s\n", column.name.c_str());
        for (const auto &[scenario, measures, microseconds, utterances, words] : column.outcomes) {
            const auto time = measures.secondsTo20Db ? number(*measures.secondsTo20Db, 2) : "never";
            std::printf("%-32s ERLE %5.1f dB, 20 dB after %5s s, lost %5.1f %%, own voice %5.1f dBFS, distance %4.1f "
                        "dB, word errors %5.1f %%\n",
                        scenario.name.c_str(), measures.erleDb, time.c_str(), measures.lostPercent, measures.ownVoiceDb,
                        measures.spectralDistanceDb, words);
        }
    }
}

} // namespace palomet::bench
