#include "model/Documents.h"

#include "base/JsonNumber.h"
#include "base/JsonReader.h"
#include "model/DocumentFields.h"

#include <array>
#include <optional>
#include <utility>

namespace palomet {

namespace {

template <typename T>
constexpr bool isOptional = false;
template <typename T>
constexpr bool isOptional<std::optional<T>> = true;

/// Reads one document from front to back, straight into its value.
class DocumentReader {
public:
    template <typename Document>
    Result<Document> readDocument(const JsonText &json) {
        Document document;
        const auto readRoot = [&](JsonReader::Value root) { return read(root, document); };
        const auto skipRoot = [&](JsonReader::Value root) { return m_json.skip(root); };
        const bool isRead = json.size() <= maximumDocumentSize && m_json.readStructure(json, readRoot) &&
                            (!m_leftSomeUnseen || m_json.readStructure(json, skipRoot));
        return isRead ? Result<Document>(std::move(document)) : failure();
    }

    Result<QString> readText(const JsonText &json) {
        QString text;
        const auto readRoot = [&](JsonReader::Document &root) {
            std::string_view utf8;
            if (root.get_string().get(utf8))
                return false;
            text = QString::fromUtf8(utf8);
            return true;
        };
        const bool isRead = json.size() <= maximumDocumentSize && m_json.readDocument(json, readRoot);
        return isRead ? Result<QString>(std::move(text)) : failure();
    }

private:
    [[nodiscard]] Failure failure() const {
        if (m_field.empty())
            return {QStringLiteral("not a document")};
        return {QStringLiteral("missing or not of its type: %1").arg(QString::fromUtf8(m_field))};
    }

    bool read(JsonReader::Value value, QString &into) {
        std::string_view utf8;
        if (value.get_string().get(utf8))
            return false;
        into = QString::fromUtf8(utf8);
        return true;
    }

    bool read(JsonReader::Value value, bool &into) { return !value.get_bool().get(into); }

    /// The parser's own doubles are wrong for some numbers of twenty digits and more.
    bool read(JsonReader::Value value, double &into) {
        const auto number = jsonNumber(JsonReader::tokenOf(value));
        into = number.value_or(0);
        return number.has_value();
    }

    bool read(JsonReader::Value value, qint64 &into) {
        const auto whole = wholeNumber<qint64>(JsonReader::tokenOf(value));
        into = whole.value_or(0);
        return whole.has_value();
    }

    template <typename T>
    bool read(JsonReader::Value value, std::optional<T> &into) {
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
    bool read(JsonReader::Value value, std::vector<T> &into) {
        into.clear();
        return m_json.readElements(value,
                                   [&](JsonReader::Value element) { return read(element, into.emplace_back()); });
    }

    template <typename T>
    requires requires { DocumentFields<T>::all; }
    bool read(JsonReader::Value value, T &into) {
        FieldStates<T> states{};
        const auto readField = [&](std::string_view key, JsonReader::Value field) {
            return readEntry(key, field, into, states);
        };
        return m_json.readFields(value, readField) && isComplete<T>(states);
    }

    enum class FieldState { Absent, Read, Unreadable };
    template <typename T>
    using FieldStates = std::array<FieldState, std::tuple_size_v<decltype(DocumentFields<T>::all)>>;

    /// Whether what comes after the entry can be read. The last of a key counts, so that one which is not of its type
    /// may still be replaced.
    template <typename T>
    bool readEntry(std::string_view key, JsonReader::Value value, T &into, FieldStates<T> &states) {
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
            if (read(value, member))
                return;
            states[index] = FieldState::Unreadable;
            m_leftSomeUnseen = true;
            if (m_field.empty())
                m_field = field.key;
        });
        return isKnown || m_json.skip(value);
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

    JsonReader m_json;
    bool m_leftSomeUnseen = false; ///< The rest of a value that is not of its type.
    std::string_view m_field;      ///< The first field that could not be read; its key lives in the table.
};

} // namespace

Result<Snapshot> decodeSnapshot(const JsonText &json) {
    return DocumentReader().readDocument<Snapshot>(json);
}

Result<std::vector<ConversationSummary>> decodeHistory(const JsonText &json) {
    return DocumentReader().readDocument<std::vector<ConversationSummary>>(json);
}

Result<Options> decodeOptions(const JsonText &json) {
    return DocumentReader().readDocument<Options>(json);
}

Result<QString> decodeText(const JsonText &json) {
    return DocumentReader().readText(json);
}

} // namespace palomet
