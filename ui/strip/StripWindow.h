#pragma once

#include "ui/UiEngine.h"
#include "ui/strip/StripPanel.h"
#include "ui/strip/StripView.h"
#include "ui/strip/WorkArea.h"

#include <QQuickView>

#include <functional>
#include <memory>

class QScreen;

namespace palomet {

/// The strip's panel: a window without a frame above all others, also above those that fill the screen, on every
/// workspace, in no list of windows, and never with the focus. Made when it is first shown, then kept. Main thread
/// only.
class StripWindow final : public QObject, public StripPanel {
    Q_OBJECT

public:
    /// Whether the pointer's place is known: not in a session where only our own windows see it.
    enum class Pointer { Known, Unknown };

    /// Without `workArea`, the toolkit says what panels leave of a screen. All arguments outlive the panel.
    StripWindow(UiEngine &engine, StripView &view, const WorkArea *workArea, Pointer pointer);
    ~StripWindow() override;

    [[nodiscard]] bool isVisible() const override;
    [[nodiscard]] std::vector<ScreenArea> screens() const override;
    [[nodiscard]] std::optional<QPoint> pointer() const override;
    void orderFront(std::optional<QPoint> origin) override;
    void orderOut() override;

    /// Whether something else tells a screen reader of a new state.
    std::function<bool()> isStateSaidElsewhere = [] { return false; };

private:
    [[nodiscard]] QRect usable(const QScreen &screen) const;
    void follow(const QScreen *screen) const;
    /// Moves to its place on its screen, or on another one if that is gone.
    void followScreens();
    void make();
    /// Tells a screen reader of a new state, once.
    void announce();

    UiEngine &m_engine;
    StripView &m_view;
    const WorkArea *m_workArea;
    const Pointer m_pointer;
    std::unique_ptr<QQuickView> m_window;
    QPoint m_origin; ///< Its place; the toolkit moves the windows of a screen that is removed.
    QString m_announced;
};

} // namespace palomet
