#include "model/Format.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace palomet;
using namespace Qt::StringLiterals;

// Two numbers and a name, whatever they are, in a region that shares nothing with ours: every number has a text, and no
// text is longer than the largest number makes it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::array<double, 2> numbers{};
    if (size < sizeof numbers)
        return 0;
    std::memcpy(numbers.data(), data, sizeof numbers);
    const auto name = QString::fromUtf8(reinterpret_cast<const char *>(data + sizeof numbers),
                                        static_cast<qsizetype>(size - sizeof numbers));
    static const bool isLoaded = [] {
        format::load({.numbers = u"ar-EG"_s, .dates = u"fa-IR-u-ca-persian"_s, .timeZone = u"Africa/Cairo"_s});
        return true;
    }();
    (void)isLoaded;

    for (const double number : numbers) {
        for (const auto &text : {format::seconds(number), format::usd(number), format::speed(number)}) {
            if (text.isEmpty() || text.size() > 500)
                std::abort();
        }
        if (format::clock(number).isEmpty() != format::day(number).isEmpty())
            std::abort();
    }
    const auto seconds = std::chrono::seconds(std::abs(numbers[1]) < 9e9 ? static_cast<std::int64_t>(numbers[1]) : 0);
    (void)format::since(numbers[0], std::chrono::system_clock::time_point(seconds));
    if (format::model(name).size() > 3 * name.size() || format::device(name).size() > name.size())
        std::abort();
    return 0;
}
