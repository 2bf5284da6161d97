#include "audio/link/LinkMessage.h"

#include "audio/link/Base64Stream.h"

#include <simdjson.h>

#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

namespace palomet::link {

namespace {

using Element = simdjson::dom::element;
using Object = simdjson::dom::object;

constexpr std::size_t maximumDepth = 512;

/// The value of a key; of one that is there twice, the last.
simdjson::simdjson_result<Element> valueAt(const Object &object, std::string_view key) {
    auto last = simdjson::simdjson_result<Element>(simdjson::NO_SUCH_FIELD);
    for (const auto field : object) {
        if (field.key == key)
            last = simdjson::simdjson_result<Element>(Element(field.value));
    }
    return last;
}

std::optional<std::string_view> stringAt(const Object &object, std::string_view key) {
    std::string_view text;
    if (valueAt(object, key).get(text) != simdjson::SUCCESS)
        return {};
    return text;
}

QString toText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::optional<qint64> integerAt(const Object &object, std::string_view key) {
    std::int64_t integer = 0;
    if (valueAt(object, key).get(integer) == simdjson::SUCCESS)
        return integer;
    // 5.0 is an integer, as any whole number is that fits.
    constexpr double limit = 9223372036854775808.0;
    double number = 0;
    Element element;
    if (valueAt(object, key).get(element) != simdjson::SUCCESS || !element.is_double())
        return {};
    if (element.get(number) != simdjson::SUCCESS || std::trunc(number) != number || number < -limit || number >= limit)
        return {};
    return static_cast<qint64>(number);
}

std::optional<QByteArray> decodeBase64(std::string_view text) {
    Base64Stream base64;
    QByteArray data;
    if (!base64.add(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())), data) || !base64.isComplete())
        return {};
    return data;
}

std::optional<Message> parsePlay(const Object &object) {
    const auto id = integerAt(object, "id");
    const auto text = stringAt(object, "data");
    if (!id || !text)
        return {};
    auto data = decodeBase64(*text);
    if (!data)
        return {};
    return Play{*id, std::move(*data), toText(stringAt(object, "format").value_or("mp3"))};
}

Enable parseEnable(const Object &object) {
    bool isOn = true;
    const auto error = valueAt(object, "on").get(isOn);
    return {error != simdjson::SUCCESS || isOn};
}

Input parseInput(const Object &object) {
    const auto device = stringAt(object, "device");
    return {device ? std::optional(toText(*device)) : std::nullopt};
}

} // namespace

std::optional<Message> parse(QByteArrayView utf8) {
    simdjson::dom::parser parser;
    Object object;
    if (utf8.isEmpty() || parser.allocate(static_cast<std::size_t>(utf8.size()), maximumDepth) != simdjson::SUCCESS ||
        parser.parse(utf8.data(), static_cast<std::size_t>(utf8.size())).get(object) != simdjson::SUCCESS)
        return {};
    const auto type = stringAt(object, "type");
    if (type == "play")
        return parsePlay(object);
    if (type == "stop")
        return Stop{};
    if (type == "enable")
        return parseEnable(object);
    if (type == "chime")
        return Chime{};
    if (type == "input")
        return parseInput(object);
    return {};
}

} // namespace palomet::link
