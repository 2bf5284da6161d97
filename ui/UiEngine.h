#pragma once

#include <QString>

#include <memory>

class QQmlEngine;

namespace palomet {

/// The one engine that runs the QML of the strip and of the window. The engine, the typeface and the modules are most
/// of the program's memory, so they are loaded when something is first shown. Main thread only.
class UiEngine {
public:
    /// Has the processor draw everything, unless `$QT_QUICK_BACKEND` says otherwise: a graphics driver would take more
    /// memory than everything else together. To be called once, before anything is shown.
    static void chooseRenderer();

    /// `resources` is the resource folder.
    explicit UiEngine(QString resources);
    ~UiEngine();

    UiEngine(const UiEngine &) = delete;
    UiEngine &operator=(const UiEngine &) = delete;

    /// Makes it at the first call.
    [[nodiscard]] QQmlEngine &get();

    /// Whether the desktop asks for reduced motion.
    void setMotionReduced(bool isReduced);

    /// Whether the desktop asks for more contrast.
    void setContrastRaised(bool isRaised);

private:
    const QString m_resources;
    bool m_isMotionReduced = false;
    bool m_isContrastRaised = false;
    std::unique_ptr<QQmlEngine> m_engine;
};

} // namespace palomet
