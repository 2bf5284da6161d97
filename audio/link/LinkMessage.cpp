#include "audio/link/LinkMessage.h"

#include "audio/link/Base64Stream.h"
#include "base/JsonNumber.h"
#include "base/JsonReader.h"

#include <string_view>
#include <utility>

namespace palomet::link {

namespace {

using simdjson::ondemand::json_type;

/// The values that are read of a message. Of a key that is there twice the last counts; a value that is not of its type
/// is none.
struct Fields {
    std::optional<std::string_view> type;
    std::optional<qint64> id;
    std::optional<std::string_view> data;
    std::optional<std::string_view> format;
    std::optional<bool> isOn;
    std::optional<std::string_view> device;
};

bool isOf(json_type type, JsonReader::Value value) {
    json_type found{};
    return !value.type().get(found) && found == type;
}

// Each reads one value and says whether what comes behind it can be read.

bool read(JsonReader &json, JsonReader::Value value, std::optional<std::string_view> &into) {
    into.reset();
    return isOf(json_type::string, value) ? !value.get_string().get(into.emplace()) : json.skip(value);
}

bool read(JsonReader &json, JsonReader::Value value, std::optional<bool> &into) {
    into.reset();
    return isOf(json_type::boolean, value) ? !value.get_bool().get(into.emplace()) : json.skip(value);
}

bool read(JsonReader &json, JsonReader::Value value, std::optional<qint64> &into) {
    into = wholeNumber<qint64>(JsonReader::tokenOf(value));
    return json.skip(value);
}

bool readField(JsonReader &json, std::string_view key, JsonReader::Value value, Fields &into) {
    if (key == "type")
        return read(json, value, into.type);
    if (key == "id")
        return read(json, value, into.id);
    if (key == "data")
        return read(json, value, into.data);
    if (key == "format")
        return read(json, value, into.format);
    if (key == "on")
        return read(json, value, into.isOn);
    if (key == "device")
        return read(json, value, into.device);
    return json.skip(value);
}

QString toText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::optional<QByteArray> decodeBase64(std::string_view text) {
    Base64Stream base64;
    QByteArray data;
    if (!base64.add(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())), data) || !base64.isComplete())
        return {};
    return data;
}

std::optional<Message> makePlay(const Fields &fields) {
    if (!fields.id || !fields.data)
        return {};
    auto data = decodeBase64(*fields.data);
    if (!data)
        return {};
    return Play{*fields.id, std::move(*data), toText(fields.format.value_or("mp3"))};
}

} // namespace

std::optional<Message> parse(QByteArrayView utf8) {
    JsonReader json;
    Fields fields;
    const auto readInto = [&](std::string_view key, JsonReader::Value value) {
        return readField(json, key, value, fields);
    };
    if (!json.readObject(utf8, readInto))
        return {};
    if (fields.type == "play")
        return makePlay(fields);
    if (fields.type == "stop")
        return Stop{};
    if (fields.type == "enable")
        return Enable{fields.isOn.value_or(true)};
    if (fields.type == "chime")
        return Chime{};
    if (fields.type == "input")
        return Input{fields.device ? std::optional(toText(*fields.device)) : std::nullopt};
    return {};
}

} // namespace palomet::link
