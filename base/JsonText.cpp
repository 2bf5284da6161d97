#include "base/JsonText.h"

#include <QIODevice>

#include <algorithm>

namespace palomet {

void JsonText::append(QByteArrayView bytes) {
    m_bytes.insert(m_size, bytes);
    m_size += bytes.size();
}

void JsonText::append(QIODevice &device) {
    while (const auto available = device.bytesAvailable()) {
        m_bytes.resize(m_size + available + padding);
        const auto taken = device.read(m_bytes.data() + m_size, available);
        m_size += std::max<qint64>(taken, 0);
        m_bytes.resize(m_size + padding);
        std::fill_n(m_bytes.data() + m_size, padding, '\0');
        if (taken <= 0)
            return;
    }
}

} // namespace palomet
