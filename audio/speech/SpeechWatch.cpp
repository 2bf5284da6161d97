#include "audio/speech/SpeechWatch.h"

#include "audio/speech/SpeechMixer.h"
#include "audio/speech/SpeechPlayer.h"

using namespace std::chrono_literals;

namespace palomet {

namespace {

constexpr int patienceSeconds = 5;

} // namespace

void SpeechWatch::begin() {
    if (m_tick)
        return;
    m_lastHeard = m_mixer.framesHeard();
    m_silentSeconds = 0;
    m_tick = m_scheduler.every(1s, [this] { look(); });
}

void SpeechWatch::look() {
    const auto heard = m_mixer.framesHeard();
    m_silentSeconds = heard == m_lastHeard ? m_silentSeconds + 1 : 0;
    m_lastHeard = heard;
    if (m_player.hasPending() && m_silentSeconds < patienceSeconds)
        return;
    end();
    if (m_player.hasPending()) {
        onNote(QStringLiteral("áudio: o servidor de som não toca nada; falas abandonadas"));
        m_player.stop();
    }
    onEnd();
}

} // namespace palomet
