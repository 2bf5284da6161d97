#pragma once

#include <QAbstractItemModel>
#include <QPersistentModelIndex>
#include <QtQml/qqml.h>

namespace palomet {

/// The selection in the texts of a list: from one place to another, where a place is a row and a position in its text.
/// The rows need not show. It stays with its rows as others come and go, and is lost with them. Main thread only; the
/// model outlives it.
class TextSelection : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged FINAL)
    /// The role that has a row's text.
    Q_PROPERTY(QString textRole READ textRole WRITE setTextRole NOTIFY modelChanged FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)
    /// Whether there is a caret, with or without a selection.
    Q_PROPERTY(bool hasCaret READ hasCaret NOTIFY changed FINAL)
    /// The place where the selection was last extended to; -1 without one.
    Q_PROPERTY(int caretRow READ caretRow NOTIFY changed FINAL)
    Q_PROPERTY(int caretPosition READ caretPosition NOTIFY changed FINAL)
    /// Another number after every change.
    Q_PROPERTY(int revision READ revision NOTIFY changed FINAL)

public:
    enum class Step { Character, Word };
    Q_ENUM(Step)

    using QObject::QObject;

    [[nodiscard]] QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);
    [[nodiscard]] const QString &textRole() const { return m_textRole; }
    void setTextRole(const QString &role);
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool hasCaret() const { return m_head.row.isValid() && m_anchor.row.isValid(); }
    [[nodiscard]] int caretRow() const { return hasCaret() ? m_head.row.row() : -1; }
    [[nodiscard]] int caretPosition() const { return hasCaret() ? m_head.position : -1; }
    [[nodiscard]] int revision() const { return m_revision; }

    /// Puts the caret at a place; nothing is selected then.
    Q_INVOKABLE void begin(int row, int position);
    /// Selects from where the selection began to that place.
    Q_INVOKABLE void extendTo(int row, int position);
    Q_INVOKABLE void selectWord(int row, int position);
    Q_INVOKABLE void selectRow(int row);
    Q_INVOKABLE void selectAll();
    /// False if there was nothing to clear.
    Q_INVOKABLE bool clear();
    /// Moves the caret by a character or a word, also into the next row or the one before.
    Q_INVOKABLE void move(palomet::TextSelection::Step step, bool isForward, bool isExtending);
    Q_INVOKABLE [[nodiscard]] bool contains(int row, int position) const;

    /// Where the selected part of a row's text begins and ends; both 0 in a row without one. A binding that asks with
    /// the revision asks again after every change.
    Q_INVOKABLE [[nodiscard]] int startIn(int row, int revision = 0) const;
    Q_INVOKABLE [[nodiscard]] int endIn(int row, int revision = 0) const;

    [[nodiscard]] QString text() const;
    /// Puts it on the clipboard; false where nothing is selected.
    Q_INVOKABLE bool copy() const;
    /// Offers it for pasting with the middle button, where the desktop has that.
    Q_INVOKABLE void offer() const;

Q_SIGNALS:
    void modelChanged();
    void changed();

private:
    struct Place {
        QPersistentModelIndex row;
        int position = 0;

        friend bool operator<(const Place &one, const Place &other) {
            return one.row.row() != other.row.row() ? one.row.row() < other.row.row() : one.position < other.position;
        }
    };

    [[nodiscard]] const Place &first() const { return m_head < m_anchor ? m_head : m_anchor; }
    [[nodiscard]] const Place &last() const { return m_head < m_anchor ? m_anchor : m_head; }
    [[nodiscard]] int role(const QByteArray &name) const;
    [[nodiscard]] QString textOf(int row) const;
    [[nodiscard]] Place place(int row, int position) const;
    [[nodiscard]] bool isRow(int row) const;
    void announce();

    QAbstractItemModel *m_model = nullptr;
    QString m_textRole = QStringLiteral("words");
    Place m_anchor;
    Place m_head;
    int m_revision = 0;
};

} // namespace palomet
