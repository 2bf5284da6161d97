#include "base/JsonReader.h"

#include "base/JsonNumber.h"

namespace palomet {

bool JsonReader::skip(Value value) {
    using simdjson::ondemand::json_type;
    json_type type{};
    if (value.type().get(type))
        return false;
    switch (type) {
    case json_type::array:
        return readElements(value, [this](Value element) { return skip(element); });
    case json_type::object:
        return readFields(value, [this](std::string_view, Value field) { return skip(field); });
    case json_type::number:
        // It may be more than a double can hold: nobody asks.
        return isJsonNumber(tokenOf(value));
    case json_type::string:
        return !value.get_string().error();
    case json_type::boolean:
        return !value.get_bool().error();
    case json_type::null:
        return !value.is_null().error();
    }
    return false;
}

std::string_view JsonReader::tokenOf(Value value) {
    const std::string_view token = value.raw_json_token();
    return token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
}

} // namespace palomet
