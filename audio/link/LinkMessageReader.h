#pragma once

#include "audio/link/Base64Stream.h"
#include "audio/link/LinkMessage.h"
#include "audio/speech/ClipDecoder.h"

#include <optional>

namespace palomet {

/// Reads the messages of the link, one after the other, each piece by piece as it comes. A clip's data is decoded on
/// the way and nothing else is kept of it, so a clip takes as much memory as its file, not several times that. One
/// thread.
class LinkMessageReader {
public:
    /// The largest file of a clip; a larger one is not kept, and its message is a `link::OversizedClip`. All that
    /// `maximumClipBytes` of decoded sound can need: at 32 bits 192 kHz, or 96 kHz in stereo, and some tags.
    static constexpr qsizetype maximumFileBytes = qsizetype{4} * maximumClipBytes + qsizetype{1024} * 1024;
    /// The most of a message beside that; more is ignored.
    static constexpr qsizetype maximumRestBytes = qsizetype{1024} * 1024;

    explicit LinkMessageReader(qsizetype maximumFile = maximumFileBytes)
        : m_maximumFile(maximumFile) {}

    void add(QByteArrayView piece);

    /// Ends the message; the next piece begins another. What `link::parse` says of the whole.
    std::optional<link::Message> finish();

private:
    enum class Place { Between, String, Data };

    void addBetween(char character);
    void addToString(char character);
    void beginData();
    [[nodiscard]] qsizetype addToData(QByteArrayView text);
    void addEscape(char character);
    void decode(QByteArrayView characters);

    qsizetype m_maximumFile;
    QByteArray m_rest; ///< The message without what was in the data, and with single blanks.
    bool m_isRestOversized = false;

    // One string of the text is taken apart on the way: the value of the key "data".
    bool m_hasData = false;
    Base64Stream m_base64;
    QByteArray m_file;
    bool m_isBase64 = true;
    bool m_isFileOversized = false;

    Place m_place = Place::Between;
    bool m_isEscaped = false;
    QByteArray m_escape; ///< What was read of one in the data: "u0041", without its backslash.
    int m_depth = 0;
    qsizetype m_stringStart = 0; ///< In the rest.
    bool m_isValue = false;      ///< Behind a colon of the outermost object.
    bool m_isDataNext = false;   ///< Its last key was "data".
};

} // namespace palomet
