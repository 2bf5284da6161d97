#include "bench/audio/echo/Speech.h"

#include "audio/speech/ClipDecoder.h"

#include <QProcess>

namespace palomet::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr double pause = 0.3; // Seconds.

} // namespace

Result<Signal> Speaker::say(const Voice &voice, const QString &sentence) {
    const auto name = QString::fromLatin1(voice.name);
    const auto known = m_said.find({name, sentence});
    if (known != m_said.end())
        return known->second;

    QProcess speech;
    speech.start(u"espeak-ng"_s,
                 {u"-v"_s, name, u"-s"_s, QString::number(voice.wordsPerMinute), u"--stdout"_s, sentence});
    if (!speech.waitForFinished() || speech.exitStatus() != QProcess::NormalExit || speech.exitCode() != 0)
        return Failure{u"espeak-ng: "_s + speech.errorString()};
    auto samples = decodeClip(speech.readAllStandardOutput(), u"wav"_s);
    if (samples)
        m_said[{name, sentence}] = *samples;
    return samples;
}

Result<Speaker::Talk> Speaker::talk(const Voice &voice, const std::vector<QString> &sentences, std::size_t first,
                                    double seconds) {
    Talk talk;
    const auto length = samplesIn(seconds);
    for (auto i = first;; ++i) {
        const auto &sentence = sentences[i % sentences.size()];
        const auto said = say(voice, sentence);
        if (!said)
            return Failure{said.reason()};
        if (talk.signal.size() + said->size() > length)
            break;
        const auto from = static_cast<double>(talk.signal.size()) / sampleRate;
        talk.signal.insert(talk.signal.end(), said->begin(), said->end());
        talk.sentences.push_back({sentence, from, static_cast<double>(talk.signal.size()) / sampleRate});
        talk.signal.resize(talk.signal.size() + samplesIn(pause));
    }
    talk.signal.resize(length);
    return talk;
}

std::vector<QString> programSentences() {
    return {
        u"Good morning. There are three messages waiting for you, and the first of them is about Friday."_s,
        u"I moved the meeting to half past four, since the larger room was taken until then."_s,
        u"The build has finished without a single warning, which took a little under nine minutes."_s,
        u"Rain is expected in the afternoon, so you may want to leave the bicycle at home today."_s,
        u"I found two places where the same file is opened twice. Shall I show you both of them?"_s,
        u"Your sister called while you were away and asked whether the weekend still suits you."_s,
        u"The train leaves from platform seven, but it has been running late all through the week."_s,
        u"I wrote a short summary of the discussion and put it beside the notes from last month."_s,
        u"Nobody has answered the question about the budget yet, though everyone has read it."_s,
        u"The backup was done during the night, and all of the checks came out as they should."_s,
    };
}

std::vector<QString> userSentences() {
    return {
        u"turn on the light in the kitchen"_s,
        u"open the window in the bedroom"_s,
        u"read me the last message"_s,
        u"stop the music and close the door"_s,
        u"what time is it now"_s,
        u"send the message to my brother"_s,
        u"turn the music down in the kitchen"_s,
        u"close the window and turn off the light"_s,
        u"read the first message again"_s,
        u"what is the time of the last train"_s,
        u"open the door to my brother"_s,
        u"send me the time of the first train"_s,
    };
}

} // namespace palomet::bench
