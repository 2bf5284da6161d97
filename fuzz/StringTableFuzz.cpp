#include "localization/Languages.h"
#include "localization/StringTable.h"
#include "localization/TextFormat.h"

#include <array>
#include <cstdlib>

using namespace palomet;

// The bytes as a string table, whose texts are then formatted, and as the languages of an environment.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    static const QStringList available{QStringLiteral("en"), QStringLiteral("pt-BR")};
    const auto language = bestLanguage(languageTags(QString::fromUtf8(bytes)), available);
    if (!language.isEmpty() && !available.contains(language))
        std::abort();

    const auto table = StringTable::parse(bytes);
    if (!table)
        return 0;
    const std::array<FormatArgument, 3> arguments{QStringLiteral("%1$@ %d"), 12'345, 2.5};
    for (const auto &key : (*table).keys()) {
        const auto text = (*table).text(key);
        if (!text)
            std::abort();
        qsizetype end = 0;
        for (const auto &directive : directivesOf(*text)) {
            if (directive.begin < end || (*text)[directive.begin] != u'%')
                std::abort();
            end = directive.begin + directive.length;
        }
        if (end > text->size())
            std::abort();
        (void)formatted(*text, arguments, QLocale::c());
    }
    return 0;
}
