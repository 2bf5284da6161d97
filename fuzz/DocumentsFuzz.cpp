#include "model/Documents.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <cstdlib>

using namespace palomet;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// What a decoder takes is JSON to another library's parser, which looks at every byte, and is the same at a second
/// look.
template <typename Document>
void look(QByteArrayView json, Result<Document> (*decode)(QByteArrayView)) {
    const auto document = decode(json);
    if (!document)
        return;
    require(nlohmann::json::accept(json.begin(), json.end()));
    const auto again = decode(json);
    require(again && *again == *document);
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
