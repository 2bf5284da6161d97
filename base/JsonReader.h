#pragma once

#include "base/JsonText.h"

// A source that is compiled without optimisation would take the parser's types for larger than all others do.
#define SIMDJSON_DEVELOPMENT_CHECKS 0
#include <simdjson.h>

#include <string_view>

namespace palomet {

/// Reads a JSON text from front to back, straight into what is wanted of it. The text is read whole or not at all, and
/// strictly: every value must be looked at, by `skip` if nobody wants it, because the parser underneath checks only
/// what is asked of it. Not readable: what is not JSON in UTF-8, lone surrogates, nesting beyond `maximumNesting`. A
/// number that is skipped may be too large for any type.
///
/// Texts that are handed to a visitor live until the next text is read. One thread at a time.
class JsonReader {
public:
    using Document = simdjson::ondemand::document;
    using Value = simdjson::ondemand::value;

    /// Whether the text could be read. `read(Document &)` says so of the value that the text is.
    template <typename Read>
    [[nodiscard]] bool readDocument(const JsonText &text, Read read) {
        static_assert(JsonText::padding >= simdjson::SIMDJSON_PADDING);
        const auto size = static_cast<std::size_t>(text.size());
        Document root;
        if (m_parser.iterate(text.data(), size, size + JsonText::padding).get(root) || !read(root))
            return false;
        const char *rest = nullptr;
        return root.current_location().get(rest) == simdjson::OUT_OF_BOUNDS;
    }

    /// The same of a text that is an array or an object, and `read(Value)`.
    template <typename Read>
    [[nodiscard]] bool readStructure(const JsonText &text, Read read) {
        return readDocument(text, [&](Document &root) {
            Value value;
            return !root.get_value().get(value) && read(value);
        });
    }

    /// The same of a text that is an object, and `visit(std::string_view key, Value)` of each of its fields.
    template <typename Visit>
    [[nodiscard]] bool readObject(const JsonText &text, Visit visit) {
        return readStructure(text, [&](Value root) { return readFields(root, visit); });
    }

    /// Whether the value is an array, of whose elements each could be read: `visit(Value)`.
    template <typename Visit>
    [[nodiscard]] bool readElements(Value value, Visit visit) {
        simdjson::ondemand::array array;
        const Level level(*this);
        if (!level.isWithinLimit || value.get_array().get(array))
            return false;
        for (auto next : array) {
            Value element;
            if (next.get(element) || !visit(element))
                return false;
        }
        return true;
    }

    /// Whether the value is an object, of whose fields each could be read: `visit(std::string_view key, Value)`.
    template <typename Visit>
    [[nodiscard]] bool readFields(Value value, Visit visit) {
        simdjson::ondemand::object object;
        const Level level(*this);
        if (!level.isWithinLimit || value.get_object().get(object))
            return false;
        for (auto next : object) {
            simdjson::ondemand::field field;
            std::string_view key;
            if (std::move(next).get(field) || field.unescaped_key().get(key) || !visit(key, field.value()))
                return false;
        }
        return true;
    }

    /// Passes over a value that nobody asked for, which must still be JSON.
    [[nodiscard]] bool skip(Value value);

    /// The bytes of a value that is neither text, array nor object, for `wholeNumber` and the like.
    [[nodiscard]] static std::string_view tokenOf(Value value);

private:
    /// One step into an array or object.
    struct Level {
        explicit Level(JsonReader &reader)
            : depth(reader.m_depth)
            , isWithinLimit(depth < maximumNesting) {
            ++depth;
        }
        Level(const Level &) = delete;
        Level &operator=(const Level &) = delete;
        ~Level() { --depth; }

        int &depth;
        const bool isWithinLimit;
    };

    simdjson::ondemand::parser m_parser;
    int m_depth = 0;
};

} // namespace palomet
