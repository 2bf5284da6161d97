#include "model/DocumentFields.h"
#include "model/Documents.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <tuple>
#include <vector>

using namespace palomet;

namespace {

using Json = nlohmann::json;

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// The other parser does not tell what was written.
struct Unsure {};

// The value that each field must have, by another library's parser. Whether it is of its type.

bool expect(const Json &json, bool &into) {
    into = json.is_boolean() && json.get<bool>();
    return json.is_boolean();
}

bool expect(const Json &json, double &into) {
    into = json.is_number() ? json.get<double>() : 0;
    return json.is_number();
}

bool expect(const Json &json, qint64 &into) {
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    if (json.is_number_float()) {
        const auto number = json.get<double>();
        // Also what it makes of an integer too large for it.
        if (std::abs(number) >= 0x1p63)
            throw Unsure();
        into = static_cast<qint64>(number);
        return static_cast<double>(into) == number;
    }
    const bool holds = json.is_number_integer() && !(json.is_number_unsigned() && json.get<std::uint64_t>() > largest);
    into = holds ? json.get<qint64>() : 0;
    return holds;
}

bool expect(const Json &json, QString &into) {
    if (json.is_string())
        into = QString::fromStdString(json.get_ref<const std::string &>());
    return json.is_string();
}

template <typename T>
requires requires {
    DocumentFields<T>::all;
}
bool expect(const Json &json, T &into);

template <typename T>
bool expect(const Json &json, std::vector<T> &into);

template <typename T>
bool expect(const Json &json, std::optional<T> &into) {
    if (json.is_null())
        return true;
    into = T();
    return expect(json, *into);
}

template <typename T>
bool expect(const Json &json, std::vector<T> &into) {
    return json.is_array() &&
           std::ranges::all_of(json, [&](const Json &element) { return expect(element, into.emplace_back()); });
}

template <typename T>
requires requires {
    DocumentFields<T>::all;
}
bool expect(const Json &json, T &into) {
    const auto isField = [&]<typename Value>(const Field<T, Value> &field) {
        const auto found = json.find(field.key);
        const auto null = Json();
        return expect(found == json.end() ? null : *found, into.*field.member);
    };
    return json.is_object() &&
           std::apply([&](const auto &...field) { return (isField(field) && ...); }, DocumentFields<T>::all);
}

/// How deep the brackets go, those in texts left out.
int nesting(QByteArrayView json) {
    int depth = 0;
    int deepest = 0;
    bool isText = false;
    for (auto byte = json.begin(); byte != json.end(); ++byte) {
        if (*byte == '"')
            isText = !isText;
        else if (isText && *byte == '\\' && std::next(byte) != json.end())
            ++byte;
        else if (!isText && (*byte == '[' || *byte == '{'))
            deepest = std::max(deepest, ++depth);
        else if (!isText && (*byte == ']' || *byte == '}'))
            --depth;
    }
    return deepest;
}

/// A decoder must make of a document what another library's parser makes of it, which looks at every byte.
template <typename Document>
void look(QByteArrayView json, Result<Document> (*decode)(QByteArrayView)) {
    const auto document = decode(json);
    try {
        Document expected{};
        // The other parser lets pass a mark of the byte order, and what follows a zero.
        const bool isReadable = expect(Json::parse(json.begin(), json.end()), expected) &&
                                nesting(json) <= maximumNesting && !json.startsWith("\xef") && !json.contains('\0');
        require(document.isOk() == isReadable);
        require(!document || *document == expected);
    } catch (const Json::parse_error &) {
        require(!document);
    } catch (const Json::out_of_range &) {
        // A number that it cannot hold, and which may do no harm.
    } catch (const Unsure &) {
    }
}

} // namespace

// The bytes as each of the documents, and as the text of an event.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArrayView json(data, static_cast<qsizetype>(size));
    look(json, decodeSnapshot);
    look(json, decodeHistory);
    look(json, decodeOptions);
    look(json, decodeText);
    return 0;
}
