#include "ui/kit/LineHeight.h"

#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace palomet {

void LineHeight::setDocument(QQuickTextDocument *document) {
    if (m_document == document)
        return;
    m_document = document;
    // There is nothing to undo in what is only read, and no memory to spend on it.
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
    // Four fifths of a line of a fixed height lie above it, in the sixty-fourths of a pixel that texts are laid out in.
    return (m_box * 64 * 4 / 5) / 64.0;
}

void LineHeight::apply() {
    // To a document, another format is another content.
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
