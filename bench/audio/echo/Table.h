#pragma once

#include "bench/audio/echo/Measures.h"
#include "bench/audio/echo/Recogniser.h"

#include <optional>
#include <string>
#include <vector>

namespace palomet::bench {

/// The result of one scenario.
struct Outcome {
    Scenario scenario;
    Measures measures;
    double microsecondsAFrame = 0;
    std::vector<Utterance> utterances; ///< What was heard while both talked.
    double wordErrors = 0;             ///< Of the words said, in per cent.
};

/// One way from microphone to backend, over all scenarios.
struct Column {
    std::string name;
    std::vector<Outcome> outcomes;
};

/// Writes the columns side by side as one Markdown table, with the marks to reach. Words are left out where there is
/// no recogniser; `nearEndWordErrors` is what it makes of the near end alone.
void writeTable(const std::vector<Column> &columns, std::optional<double> nearEndWordErrors);

/// Writes one row for each kind of hardship, in the order in which they come: ERLE in dB, mean and least, the near end
/// lost in per cent, median and most, the level of what is left of the program's voice at its loudest, in dBFS, and, if
/// they were counted, the words misheard, in per cent.
void writeKinds(const std::vector<Column> &columns, bool hasWords);

/// Every scenario's own figures.
void writeDetails(const std::vector<Column> &columns);

} // namespace palomet::bench
