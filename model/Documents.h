#pragma once

#include "base/JsonText.h"
#include "base/Result.h"
#include "model/ConversationSummary.h"
#include "model/Options.h"
#include "model/Snapshot.h"

#include <vector>

/// Decoding of what the backend sends: pure functions over bytes, for any thread. A document is read whole or not at
/// all. Every field that is not optional must be there with a value of its type; an optional one may be absent or null;
/// other keys are passed over, whatever they hold, and of a key that is there twice the last one counts as if it were
/// alone. A number is the double nearest to it. An integer is a JSON number without a fraction (5.0 is one) that 64
/// bits can hold.
///
/// Not readable: what is not strict JSON in UTF-8, lone surrogates, numbers of a field that no double can hold, nesting
/// beyond `maximumNesting`, more than `maximumDocumentSize` bytes. The failure's reason says which, or names the field.
namespace palomet {

inline constexpr qsizetype maximumDocumentSize = qsizetype{64} * 1024 * 1024;

Result<Snapshot> decodeSnapshot(const JsonText &json);
Result<std::vector<ConversationSummary>> decodeHistory(const JsonText &json);
Result<Options> decodeOptions(const JsonText &json);

/// A JSON text of nothing but one string, as events carry it.
Result<QString> decodeText(const JsonText &json);

} // namespace palomet
