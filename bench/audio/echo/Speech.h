#pragma once

#include "base/Result.h"
#include "bench/audio/echo/Signal.h"

#include <QString>

#include <map>
#include <utility>
#include <vector>

namespace palomet::bench {

/// A synthetic speaker, as espeak-ng names it, and how many words a minute it speaks.
struct Voice {
    const char *name;
    int wordsPerMinute;
};

/// Speaks sentences by espeak-ng, each but once: the same samples every time.
class Speaker {
public:
    Result<Signal> say(const Voice &voice, const QString &sentence);

    struct Sentence {
        QString text;
        double from = 0; ///< Seconds from the beginning of the talk.
        double to = 0;
    };
    struct Talk {
        Signal signal;
        std::vector<Sentence> sentences;
    };

    /// Sentences one after the other with pauses between them, from the `first` of the list on and round again, filling
    /// `seconds` and no more.
    Result<Talk> talk(const Voice &voice, const std::vector<QString> &sentences, std::size_t first, double seconds);

private:
    std::map<std::pair<QString, QString>, Signal> m_said;
};

/// The sentences of the program and of the user: all that the recogniser's grammar knows.
std::vector<QString> programSentences();
std::vector<QString> userSentences();

} // namespace palomet::bench
