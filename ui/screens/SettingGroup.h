#pragma once

#include "ui/screens/Screen.h"

#include <QtQml/qqml.h>

namespace palomet {

/// Settings that stand together under a heading. Each adds itself when it is made, and they show in that order. Main
/// thread only; a member of its screen, before its settings.
class SettingGroup final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QList<QObject *> settings READ settings CONSTANT FINAL)

public:
    /// A title that is no key is shown as it is.
    SettingGroup(Screen &screen, const char *titleKey);

    [[nodiscard]] Screen &screen() const { return m_screen; }
    [[nodiscard]] QString title() const;
    [[nodiscard]] const QList<QObject *> &settings() const { return children(); }

private:
    Screen &m_screen;
    const char *m_titleKey;
};

} // namespace palomet
