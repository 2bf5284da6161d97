#pragma once

#include "model/PalometModel.h"

#include <QObject>

namespace palomet {

/// The base of all panes' screens. It shows the model while the pane can be seen, and costs nothing otherwise. Main
/// thread only; the model outlives it.
class Screen : public QObject {
    Q_OBJECT

public:
    explicit Screen(PalometModel &model);

    /// Whether its pane can be seen. On becoming active it takes over everything that has happened meanwhile.
    void setActive(bool isActive);
    [[nodiscard]] bool isActive() const { return m_isActive; }
    [[nodiscard]] PalometModel &model() const { return m_model; }

Q_SIGNALS:
    /// The screen became active.
    void activated();

protected:
    /// Null without a snapshot.
    [[nodiscard]] const Snapshot *snapshot() const { return m_model.snapshot().get(); }

    /// Calls `update` at that signal, while active.
    template <typename Update>
    void follow(void (PalometModel::*signal)(), Update update) {
        connect(&m_model, signal, this, [this, update] {
            if (m_isActive)
                update();
        });
    }

    /// Takes over everything from the model that its settings do not take over themselves.
    virtual void updateAll() {}
    virtual void becameInactive() {}

private:
    PalometModel &m_model;
    bool m_isActive = false;
};

} // namespace palomet
