#include "model/Format.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace palomet;
using namespace Qt::StringLiterals;

// Two numbers and a name, whatever they are, in one region and another: every number has a text, and no text is
// longer than the largest number makes it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::array<double, 2> numbers{};
    if (size < 1 + sizeof numbers)
        return 0;
    std::memcpy(numbers.data(), data + 1, sizeof numbers);
    const auto name = QString::fromUtf8(reinterpret_cast<const char *>(data + 1 + sizeof numbers),
                                        static_cast<qsizetype>(size - 1 - sizeof numbers));
    static const std::array regions{
        Format::Region{.numbers = u"en-US"_s, .dates = u"en-US"_s, .timeZone = u"America/New_York"_s},
        Format::Region{.numbers = u"ar-EG"_s, .dates = u"ar-EG"_s, .timeZone = u"Africa/Cairo"_s},
        Format::Region{.numbers = u"hi-IN"_s, .dates = u"fa-IR-u-ca-persian"_s, .timeZone = u"Asia/Kolkata"_s},
    };
    static std::size_t loaded = regions.size();
    if (const auto wanted = data[0] % regions.size(); wanted != loaded) {
        loaded = wanted;
        Format::load(regions[wanted]);
    }

    for (const double number : numbers) {
        for (const auto &text : {Format::seconds(number), Format::usd(number), Format::speed(number)}) {
            if (text.isEmpty() || text.size() > 500)
                std::abort();
        }
        if (Format::clock(number).isEmpty() != Format::day(number).isEmpty())
            std::abort();
    }
    const auto seconds = std::chrono::seconds(std::abs(numbers[1]) < 9e9 ? static_cast<std::int64_t>(numbers[1]) : 0);
    (void)Format::since(numbers[0], std::chrono::system_clock::time_point(seconds));
    if (Format::model(name).size() > 3 * name.size() || Format::device(name).size() > name.size())
        std::abort();
    return 0;
}
