#include "ui/screens/TextSelection.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace palomet {

namespace {

int length(const QString &text) {
    return static_cast<int>(text.size());
}

/// The next boundary of a character, or beginning of a word; -1 where the text ends.
int next(const QString &text, int position, TextSelection::Step step, bool isForward) {
    const bool isByWord = step == TextSelection::Step::Word;
    QTextBoundaryFinder finder(isByWord ? QTextBoundaryFinder::Word : QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(position);
    for (;;) {
        const auto at = isForward ? finder.toNextBoundary() : finder.toPreviousBoundary();
        const auto reasons = finder.boundaryReasons();
        if (at < 0 || !isByWord || reasons.testFlag(QTextBoundaryFinder::StartOfItem) || at == 0 || at == text.size())
            return static_cast<int>(at);
    }
}

} // namespace

void TextSelection::setModel(QAbstractItemModel *model) {
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    clear();
    if (m_model) {
        // A caret whose row is removed is gone; one whose text has got shorter stays within the text.
        for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
            connect(m_model, signal, this, &TextSelection::announce);
        connect(m_model, &QAbstractItemModel::dataChanged, this, &TextSelection::announce);
        connect(m_model, &QAbstractItemModel::modelReset, this, &TextSelection::announce);
    }
    Q_EMIT modelChanged();
}

void TextSelection::setTextRole(const QString &role) {
    m_textRole = role;
    Q_EMIT modelChanged();
}

int TextSelection::role(const QByteArray &name) const {
    return m_model ? m_model->roleNames().key(name, -1) : -1;
}

bool TextSelection::isRow(int row) const {
    return m_model && row >= 0 && row < m_model->rowCount();
}

QString TextSelection::textOf(int row) const {
    return isRow(row) ? m_model->index(row, 0).data(role(m_textRole.toLatin1())).toString() : QString();
}

TextSelection::Place TextSelection::place(int row, int position) const {
    return {m_model->index(row, 0), std::clamp(position, 0, length(textOf(row)))};
}

void TextSelection::announce() {
    if (m_revision == 0 && !hasCaret())
        return;
    ++m_revision;
    Q_EMIT changed();
}

bool TextSelection::isEmpty() const {
    return !hasCaret() || (m_anchor.row == m_head.row && m_anchor.position == m_head.position);
}

void TextSelection::begin(int row, int position) {
    if (!isRow(row))
        return;
    m_anchor = m_head = place(row, position);
    announce();
}

void TextSelection::extendTo(int row, int position) {
    if (!hasCaret())
        return begin(row, position);
    if (!isRow(row))
        return;
    m_head = place(row, position);
    announce();
}

void TextSelection::selectWord(int row, int position) {
    const auto text = textOf(row);
    position = std::clamp(position, 0, length(text));
    // A place right behind a word means that word.
    if (position > 0 && (position == text.size() || text[position].isSpace()))
        --position;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text);
    finder.setPosition(position);
    const auto start = finder.isAtBoundary() ? position : std::max<qsizetype>(finder.toPreviousBoundary(), 0);
    finder.setPosition(start);
    const auto end = finder.toNextBoundary();
    begin(row, static_cast<int>(start));
    extendTo(row, static_cast<int>(end < 0 ? text.size() : end));
}

void TextSelection::selectRow(int row) {
    begin(row, 0);
    extendTo(row, length(textOf(row)));
}

void TextSelection::selectAll() {
    if (!m_model || m_model->rowCount() == 0)
        return;
    const auto lastRow = m_model->rowCount() - 1;
    begin(0, 0);
    extendTo(lastRow, length(textOf(lastRow)));
}

bool TextSelection::clear() {
    const bool hadCaret = hasCaret();
    m_anchor = m_head = {};
    if (hadCaret)
        announce();
    return hadCaret;
}

void TextSelection::move(Step step, bool isForward, bool isExtending) {
    if (!hasCaret())
        return;
    if (!isExtending && !isEmpty() && step == Step::Character) {
        // As in every text field, it goes to the selection's end.
        const auto to = isForward ? last() : first();
        return begin(to.row.row(), to.position);
    }
    int row = m_head.row.row();
    auto position = next(textOf(row), std::min(m_head.position, length(textOf(row))), step, isForward);
    if (position < 0) {
        if (!isRow(isForward ? row + 1 : row - 1))
            return;
        row = isForward ? row + 1 : row - 1;
        position = isForward ? 0 : length(textOf(row));
    }
    isExtending ? extendTo(row, position) : begin(row, position);
}

int TextSelection::startIn(int row, int /*revision*/) const {
    if (isEmpty() || row < first().row.row() || row > last().row.row())
        return 0;
    return row == first().row.row() ? first().position : 0;
}

int TextSelection::endIn(int row, int /*revision*/) const {
    if (isEmpty() || row < first().row.row() || row > last().row.row())
        return 0;
    return row == last().row.row() ? last().position : length(textOf(row));
}

bool TextSelection::contains(int row, int position) const {
    return position >= startIn(row) && position < endIn(row);
}

QString TextSelection::text() const {
    QString text;
    if (isEmpty())
        return text;
    const auto joint = role("joint");
    for (int row = first().row.row(); row <= last().row.row(); ++row) {
        if (row > first().row.row())
            text += joint < 0 ? QStringLiteral("\n") : m_model->index(row, 0).data(joint).toString();
        const auto start = startIn(row);
        text += QStringView(textOf(row)).mid(start, endIn(row) - start);
    }
    return text;
}

bool TextSelection::copy() const {
    if (isEmpty())
        return false;
    QGuiApplication::clipboard()->setText(text());
    return true;
}

void TextSelection::offer() const {
    auto *clipboard = QGuiApplication::clipboard();
    if (!isEmpty() && clipboard->supportsSelection())
        clipboard->setText(text(), QClipboard::Selection);
}

} // namespace palomet
