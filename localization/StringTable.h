#pragma once

#include "base/Result.h"

#include <QAnyStringView>
#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace palomet {

/// The texts of one language by their keys: one JSON object, `{"state.waiting": "Waiting", …}`. A value that is no text
/// is left out as if its key were missing; of a key that stands twice the last counts.
class StringTable {
public:
    /// More than this many bytes are no string table.
    static constexpr qsizetype maximumSize = 4'194'304;

    /// The table that the bytes hold. Fails when they are too many, or no JSON object in UTF-8.
    static Result<StringTable> parse(QByteArrayView json);

    /// As `parse`, of a file. Never reads more than the maximum, and waits for nothing: what is no plain file is
    /// refused.
    static Result<StringTable> read(const QString &path);

    [[nodiscard]] std::optional<QString> text(QAnyStringView key) const;
    [[nodiscard]] QStringList keys() const { return m_texts.keys(); }

private:
    QHash<QString, QString> m_texts;
};

} // namespace palomet
