#pragma once

#include "localization/Localization.h"
#include "model/Format.h"

#include <gtest/gtest.h>

#include <limits>

namespace palomet::test {

using namespace Qt::StringLiterals;
using std::chrono::system_clock;

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double largest = std::numeric_limits<double>::max();

inline system_clock::time_point instant(double ms) {
    return system_clock::time_point(
        std::chrono::duration_cast<system_clock::duration>(std::chrono::duration<double, std::milli>(ms)));
}

/// A region whose clock stands still.
inline void load(const QString &locale, const QString &zone = u"UTC"_s, double now = 0) {
    format::load({.numbers = locale, .dates = locale, .timeZone = zone, .clock = [now] { return instant(now); }});
}

/// A text without the invisible marks of writing from right to left.
inline QString bare(QString text) {
    return text.remove(u'\u200F').remove(u'\u200E').remove(u'\u061C');
}

/// The formats of the United States, in English.
class FormatTest : public testing::Test {
protected:
    FormatTest() {
        speak("en");
        load(u"en-US"_s);
    }
    ~FormatTest() override { format::load(format::systemRegion()); }

    static void speak(const char *language) {
        localization::load(u"" PALOMET_SOURCE_DIR "/resources"_s, {QString::fromLatin1(language)});
    }
};

} // namespace palomet::test
