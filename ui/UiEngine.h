#pragma once

#include <QString>

#include <memory>

class QQmlEngine;

namespace palomet {

/// The one engine that runs the QML of the strip and of the window. It is most of what the program weighs, and so it,
/// the typeface and the modules are loaded when something is first to be shown. Main thread only.
class UiEngine {
public:
    /// Everything is drawn by the processor, unless `$QT_QUICK_BACKEND` says otherwise: a graphics driver would cost
    /// more than everything else together. To be called once, before anything is shown.
    static void chooseRenderer();

    /// `resources` is the resource folder.
    explicit UiEngine(QString resources);
    ~UiEngine();

    UiEngine(const UiEngine &) = delete;
    UiEngine &operator=(const UiEngine &) = delete;

    /// Makes it at the first call.
    [[nodiscard]] QQmlEngine &get();

    /// Whether the desktop asks for stillness.
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
