#pragma once

#include "ui/strip/StripPanel.h"
#include "ui/strip/StripView.h"

#include <QPointer>
#include <QQuickView>

#include <memory>

class QQmlEngine;
class QScreen;

namespace palomet {

/// Port: what panels and docks take from a screen, in the display server's own pixels.
class WorkArea {
public:
    WorkArea() = default;
    WorkArea(const WorkArea &) = delete;
    WorkArea &operator=(const WorkArea &) = delete;
    virtual ~WorkArea() = default;

    /// The usable part of a screen; the whole of it where nobody says anything.
    [[nodiscard]] virtual QRect usable(const QRect &screen) const = 0;
};

/// The strip's panel: a window without a frame above all others, also above those that fill the screen, on every
/// workspace, in no list of windows, and never with the focus. Made when it is first shown, then kept. Main thread only.
class StripWindow final : public QObject, public StripPanel {
    Q_OBJECT

public:
    /// Whether the pointer's place is known: not in a session where only our own windows see it.
    enum class Pointer { Known, Unknown };

    /// `engine` has the kit and the module of the strip. `workArea` may be null: the toolkit's word is taken. All of them
    /// outlive the panel.
    StripWindow(QQmlEngine &engine, StripView &view, const WorkArea *workArea, Pointer pointer);
    ~StripWindow() override;

    [[nodiscard]] bool isVisible() const override;
    [[nodiscard]] std::vector<ScreenArea> screens() const override;
    [[nodiscard]] std::optional<QPoint> pointer() const override;
    void orderFront(std::optional<QPoint> origin) override;
    void orderOut() override;

    /// Null until it was first shown.
    [[nodiscard]] QQuickView *window() const { return m_window.get(); }

private:
    [[nodiscard]] QRect usable(const QScreen &screen) const;
    void make();

    QQmlEngine &m_engine;
    StripView &m_view;
    const WorkArea *m_workArea;
    const Pointer m_pointer;
    std::unique_ptr<QQuickView> m_window;
};

} // namespace palomet
