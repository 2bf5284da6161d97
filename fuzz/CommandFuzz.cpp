#include "command/CommandLine.h"
#include "model/CommandBody.h"

#include <QJsonValue>

#include <simdjson.h>

#include <cstdint>
#include <cstdlib>

using namespace palomet;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

// The bytes as the program's arguments, one a line, and as a text that is said: what is taken is sent as JSON that
// says the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto line = CommandLine::parse(QString::fromUtf8(bytes).split(u'\n'));
    require((line.mode == CommandLine::Mode::Invalid) == !line.problem.isEmpty());
    require((line.mode == CommandLine::Mode::Command) == line.command.has_value());

    const auto text = CommandLine::checkedText(bytes);
    if (!text)
        return 0;
    require(text->toUtf8().size() <= CommandLine::maximumTextBytes);
    const auto body = commandBody(QStringLiteral("text"), *text);
    simdjson::dom::parser parser;
    std::string_view said;
    require(!parser.parse(body.data(), static_cast<std::size_t>(body.size()))["text"].get(said));
    require(QString::fromUtf8(said) == *text);
    return 0;
}
