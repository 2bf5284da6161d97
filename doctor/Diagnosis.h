#pragma once

#include "doctor/Examination.h"

#include <QString>

#include <optional>
#include <vector>

namespace palomet {

/// One thing that was looked at: what is, and what to do if it does not work.
struct Finding {
    enum class Verdict { Works, Fails };

    Verdict verdict;
    QString subject;
    QString text;

    /// "ok  subject: text", or "!!  subject: text".
    [[nodiscard]] QString line() const;
};

/// The findings that follow from it, in the order in which a reader is told. No word of a conversation is in them.
[[nodiscard]] std::vector<Finding> diagnose(const Examination &examination);

/// The finding that follows from listening to the microphone for a while; none: it could not be listened to.
[[nodiscard]] Finding diagnoseLevel(const std::optional<SoundLevel> &level);

/// In decibels of full scale; silence is -120.
[[nodiscard]] int decibels(double amplitude);

} // namespace palomet
