#pragma once

#include "base/Callback.h"

#include <QString>

namespace palomet {

/// Port: short words to the user outside the program's windows, as the desktop shows them, if it shows any. Nothing
/// here waits for the desktop. Main thread only.
class Notifier {
public:
    struct Notice {
        QString title;
        QString text;
        QString button; ///< What its only button says.

        bool operator==(const Notice &) const = default;
    };

    Notifier() = default;
    Notifier(const Notifier &) = delete;
    Notifier &operator=(const Notifier &) = delete;
    virtual ~Notifier() = default;

    /// Shows a notice, in the place of the one with the same id.
    virtual void show(quint32 id, const Notice &notice) = 0;

    /// Takes it away where it still shows.
    virtual void withdraw(quint32 id) = 0;

    /// The notice or its button was clicked. `activation` is what lets a window come to the front then; empty where the
    /// desktop gives nothing. From the event loop.
    Callback<void(quint32 id, const QString &activation)> onChosen;
};

} // namespace palomet
