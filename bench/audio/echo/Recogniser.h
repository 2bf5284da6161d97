#pragma once

#include "base/Result.h"
#include "bench/audio/echo/Signal.h"

#include <QString>

#include <vector>

namespace palomet::bench {

/// One sentence for the recogniser, at 16 kHz, with its words.
struct Utterance {
    Signal samples;
    QString sentence;
};

/// How many words were said, and how many of them were misheard: changed, put in or left out.
struct WordCount {
    int said = 0;
    int wrong = 0;
};

/// Whether pocketsphinx and its English model are installed.
bool isRecogniserInstalled();

/// The count for each utterance. The recogniser listens for the `userSentences`.
Result<std::vector<WordCount>> countWords(const std::vector<Utterance> &utterances);

} // namespace palomet::bench
