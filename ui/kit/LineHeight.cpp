#include "ui/kit/LineHeight.h"

#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace palomet {

void LineHeight::setDocument(QQuickTextDocument *document) {
    if (m_document == document)
        return;
    m_document = document;
    // A text that is only read needs no memory for undoing.
    if (m_document)
        m_document->textDocument()->setUndoRedoEnabled(false);
    Q_EMIT changed();
}

void LineHeight::setBox(int box) {
    if (m_box == box)
        return;
    m_box = box;
    if (m_isApplied)
        apply();
    Q_EMIT changed();
}

qreal LineHeight::baseline() const {
    // Four fifths of a fixed line height lie above the baseline, in the sixty-fourths of a pixel of the text layout.
    const int ascent = m_box * 64 * 4 / 5;
    return ascent / 64.0;
}

void LineHeight::apply() {
    // A change of the format reports a change of the text, which calls this again.
    if (!m_document || m_box == 0 || m_isApplying)
        return;
    m_isApplying = true;
    QTextBlockFormat format;
    format.setLineHeight(m_box, QTextBlockFormat::FixedHeight);
    QTextCursor all(m_document->textDocument());
    all.select(QTextCursor::Document);
    all.setBlockFormat(format);
    m_isApplying = false;
    m_isApplied = true;
}

} // namespace palomet
