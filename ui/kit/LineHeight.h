#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqml.h>

namespace palomet {

/// Gives all lines of a shown document the same height, which the toolkit's text editor does not offer. Main thread
/// only.
class LineHeight : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *document READ document WRITE setDocument NOTIFY changed FINAL REQUIRED)
    /// In points.
    Q_PROPERTY(int box READ box WRITE setBox NOTIFY changed FINAL REQUIRED)
    /// The distance from a line's top to its baseline.
    Q_PROPERTY(qreal baseline READ baseline NOTIFY changed FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickTextDocument *document() const { return m_document; }
    void setDocument(QQuickTextDocument *document);
    [[nodiscard]] int box() const { return m_box; }
    void setBox(int box);
    [[nodiscard]] qreal baseline() const;

    /// To be called once the document is there, and when its text has changed.
    Q_INVOKABLE void apply();

Q_SIGNALS:
    void changed();

private:
    QPointer<QQuickTextDocument> m_document;
    int m_box = 0;
    bool m_isApplying = false;
    bool m_isApplied = false;
};

} // namespace palomet
