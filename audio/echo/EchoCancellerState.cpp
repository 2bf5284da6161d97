#include "audio/echo/EchoCanceller.h"

#include <QStringList>

namespace palomet {

QString EchoCancellerState::inWords() const {
    QStringList words{library, isConverged ? QStringLiteral("has found the echo")
                                           : QStringLiteral("has not found the echo yet")};
    words += delayMs ? QStringLiteral("delay %1 ms").arg(*delayMs) : QStringLiteral("delay unknown");
    words += echoReturnLossEnhancementDb
                 ? QStringLiteral("echo return loss enhancement %1 dB").arg(*echoReturnLossEnhancementDb, 0, 'f', 1)
                 : QStringLiteral("echo return loss enhancement unknown");
    return words.join(QStringLiteral("; "));
}

} // namespace palomet
