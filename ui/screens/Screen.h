#pragma once

#include "model/PalometModel.h"

#include <QObject>

namespace palomet {

/// What the screens of all panes have in common: they show the model while they can be seen, and cost nothing
/// otherwise. Main thread only; the model outlives them.
class Screen : public QObject {
    Q_OBJECT

public:
    explicit Screen(PalometModel &model);

    /// Whether the screen is the one that can be seen. Becoming so, it takes over all that happened meanwhile.
    void setActive(bool isActive);
    [[nodiscard]] bool isActive() const { return m_isActive; }

protected:
    [[nodiscard]] PalometModel &model() const { return m_model; }
    /// Null without a snapshot.
    [[nodiscard]] const Snapshot *snapshot() const { return m_model.snapshot().get(); }
    [[nodiscard]] const Snapshot::Settings *settings() const;
    [[nodiscard]] bool isApplying(QStringView key) const { return m_model.applying() == key; }

    /// Calls `update` at that signal, while active.
    template <typename Update>
    void follow(void (PalometModel::*signal)(), Update update) {
        connect(&m_model, signal, this, [this, update] {
            if (m_isActive)
                update();
        });
    }

    /// Takes over everything from the model.
    virtual void updateAll() = 0;
    virtual void becameInactive() {}

private:
    PalometModel &m_model;
    bool m_isActive = false;
};

} // namespace palomet
