#include "model/Documents.h"

#include "model/DocumentFields.h"
#include "model/JsonNumber.h"

#include <simdjson.h>

#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace palomet {

namespace {

using simdjson::ondemand::json_type;
using JsonValue = simdjson::ondemand::value;

template <typename T>
constexpr bool isOptional = false;
template <typename T>
constexpr bool isOptional<std::optional<T>> = true;

/// The bytes of a value that is neither text, array nor object.
std::string_view tokenOf(JsonValue value) {
    const std::string_view token = value.raw_json_token();
    return token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
}

/// Reads one document from front to back, straight into its value. Every value is looked at, wanted or not, because the
/// parser underneath checks only what is asked of it.
class DocumentReader {
public:
    template <typename Document>
    Result<Document> readDocument(QByteArrayView json) {
        Document document;
        const auto readRoot = [&](simdjson::ondemand::document &root) {
            JsonValue value;
            return !root.get_value().get(value) && read(value, document);
        };
        const auto skipRoot = [&](simdjson::ondemand::document &root) {
            JsonValue value;
            return !root.get_value().get(value) && skip(value);
        };
        const bool isRead = readWhole(json, readRoot) && (!m_leftSomeUnseen || readWhole(json, skipRoot));
        return isRead ? Result<Document>(std::move(document)) : failure();
    }

    Result<QString> readText(QByteArrayView json) {
        QString text;
        return readWhole(json,
                         [&](simdjson::ondemand::document &root) {
                             std::string_view utf8;
                             if (root.get_string().get(utf8))
                                 return false;
                             text = QString::fromUtf8(utf8);
                             return true;
                         })
                   ? Result<QString>(std::move(text))
                   : failure();
    }

private:
    template <typename Read>
    bool readWhole(QByteArrayView json, Read readRoot) {
        if (json.size() > maximumDocumentSize)
            return false;
        const simdjson::padded_string padded(json.data(), static_cast<std::size_t>(json.size()));
        simdjson::ondemand::document root;
        if (m_parser.iterate(padded).get(root) || !readRoot(root))
            return false;
        const char *rest = nullptr;
        return root.current_location().get(rest) == simdjson::OUT_OF_BOUNDS;
    }

    [[nodiscard]] Failure failure() const {
        if (m_field.empty())
            return {QStringLiteral("not a document")};
        return {QStringLiteral("missing or not of its type: %1").arg(QString::fromUtf8(m_field))};
    }

    bool read(JsonValue value, QString &into) {
        std::string_view utf8;
        if (value.get_string().get(utf8))
            return false;
        into = QString::fromUtf8(utf8);
        return true;
    }

    bool read(JsonValue value, bool &into) { return !value.get_bool().get(into); }

    /// The parser's own doubles are wrong for some numbers of twenty digits and more.
    bool read(JsonValue value, double &into) {
        const auto number = jsonNumber(tokenOf(value));
        into = number.value_or(0);
        return number.has_value();
    }

    bool read(JsonValue value, qint64 &into) {
        std::int64_t integer = 0;
        if (!value.get_int64().get(integer)) {
            into = integer;
            return true;
        }
        // A double written as an integer too large for 64 bits must not be taken for its rounded neighbour.
        const bool isFraction = tokenOf(value).find_first_of(".eE") != std::string_view::npos;
        double number = 0;
        if (!isFraction || !read(value, number))
            return false;
        if (number != std::trunc(number) || number < -0x1p63 || number >= 0x1p63)
            return false;
        into = static_cast<qint64>(number);
        return true;
    }

    template <typename T>
    bool read(JsonValue value, std::optional<T> &into) {
        bool isNull = false;
        if (value.is_null().get(isNull))
            return false;
        into.reset();
        if (isNull)
            return true;
        into = T();
        return read(value, *into);
    }

    template <typename T>
    bool read(JsonValue value, std::vector<T> &into) {
        simdjson::ondemand::array array;
        if (value.get_array().get(array))
            return false;
        into.clear();
        ++m_depth;
        for (auto next : array) {
            JsonValue element;
            if (next.get(element) || !read(element, into.emplace_back()))
                return false;
        }
        --m_depth;
        return true;
    }

    template <typename T>
    requires requires { DocumentFields<T>::all; }
    bool read(JsonValue value, T &into) {
        simdjson::ondemand::object object;
        if (value.get_object().get(object))
            return false;
        FieldStates<T> states{};
        ++m_depth;
        for (auto next : object) {
            simdjson::ondemand::field entry;
            std::string_view key;
            if (std::move(next).get(entry) || entry.unescaped_key().get(key) ||
                !readEntry(key, entry.value(), into, states))
                return false;
        }
        --m_depth;
        return isComplete<T>(states);
    }

    enum class FieldState { Absent, Read, Unreadable };
    template <typename T>
    using FieldStates = std::array<FieldState, std::tuple_size_v<decltype(DocumentFields<T>::all)>>;

    /// Whether what comes after the entry can be read. The last of a key counts, so that one which is not of its type
    /// may still be replaced.
    template <typename T>
    bool readEntry(std::string_view key, JsonValue value, T &into, FieldStates<T> &states) {
        bool isKnown = false;
        forEachField<T>([&](std::size_t index, const auto &field) {
            if (isKnown || field.key != key)
                return;
            isKnown = true;
            auto &member = into.*field.member;
            const auto before = std::exchange(states[index], FieldState::Read);
            if (before != FieldState::Absent)
                member = std::remove_reference_t<decltype(member)>();
            if (before == FieldState::Unreadable)
                m_field = {};
            const int depth = m_depth;
            if (read(value, member))
                return;
            states[index] = FieldState::Unreadable;
            m_depth = depth;
            m_leftSomeUnseen = true;
            if (m_field.empty())
                m_field = field.key;
        });
        return isKnown || skip(value);
    }

    template <typename T>
    bool isComplete(const FieldStates<T> &states) {
        bool isComplete = true;
        forEachField<T>([&](std::size_t index, const auto &field) {
            const bool mayLack = isOptional<std::remove_reference_t<decltype(std::declval<T &>().*field.member)>>;
            if (states[index] == FieldState::Read || (states[index] == FieldState::Absent && mayLack))
                return;
            isComplete = false;
            if (m_field.empty())
                m_field = field.key;
        });
        return isComplete;
    }

    template <typename T, typename Visit>
    static void forEachField(Visit visit) {
        std::apply(
            [&](const auto &...field) {
                std::size_t index = 0;
                (visit(index++, field), ...);
            },
            DocumentFields<T>::all);
    }

    /// Passes over a value that nobody asked for, which must still be JSON.
    bool skip(JsonValue value) {
        json_type type{};
        if (value.type().get(type))
            return false;
        switch (type) {
        case json_type::array:
            return skipArray(value);
        case json_type::object:
            return skipObject(value);
        case json_type::number:
            // Nobody asks whether a double can hold it.
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

    bool skipArray(JsonValue value) {
        simdjson::ondemand::array array;
        if (m_depth == maximumNesting || value.get_array().get(array))
            return false;
        ++m_depth;
        for (auto next : array) {
            JsonValue element;
            if (next.get(element) || !skip(element))
                return false;
        }
        --m_depth;
        return true;
    }

    bool skipObject(JsonValue value) {
        simdjson::ondemand::object object;
        if (m_depth == maximumNesting || value.get_object().get(object))
            return false;
        ++m_depth;
        for (auto next : object) {
            simdjson::ondemand::field entry;
            std::string_view key;
            if (std::move(next).get(entry) || entry.unescaped_key().get(key) || !skip(entry.value()))
                return false;
        }
        --m_depth;
        return true;
    }

    simdjson::ondemand::parser m_parser{static_cast<std::size_t>(maximumDocumentSize)};
    int m_depth = 0;
    bool m_leftSomeUnseen = false; ///< The rest of a value that is not of its type.
    std::string_view m_field;      ///< The first field that could not be read; its key lives in the table.
};

} // namespace

Result<Snapshot> decodeSnapshot(QByteArrayView json) {
    return DocumentReader().readDocument<Snapshot>(json);
}

Result<std::vector<ConversationSummary>> decodeHistory(QByteArrayView json) {
    return DocumentReader().readDocument<std::vector<ConversationSummary>>(json);
}

Result<Options> decodeOptions(QByteArrayView json) {
    return DocumentReader().readDocument<Options>(json);
}

Result<QString> decodeText(QByteArrayView json) {
    return DocumentReader().readText(json);
}

} // namespace palomet
