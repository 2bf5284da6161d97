#include "ui/UiEngine.h"

#include "ui/Ui.h"
#include "ui/kit/Kit.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>

namespace palomet {

void UiEngine::chooseRenderer() {
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

UiEngine::UiEngine(QString resources)
    : m_resources(std::move(resources)) {}

UiEngine::~UiEngine() {
    // Items removed from a scene wait for deletion, which has to come before the engine's.
    if (m_engine)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QQmlEngine &UiEngine::get() {
    if (m_engine)
        return *m_engine;
    Kit::registerFonts(m_resources);
    QGuiApplication::setWindowIcon(Kit::programIcon(m_resources));
    m_engine = std::make_unique<QQmlEngine>();
    Ui::install(*m_engine, m_resources);
    Kit::setMotionReduced(*m_engine, m_isMotionReduced);
    Kit::setContrastRaised(*m_engine, m_isContrastRaised);
    return *m_engine;
}

void UiEngine::setMotionReduced(bool isReduced) {
    m_isMotionReduced = isReduced;
    if (m_engine)
        Kit::setMotionReduced(*m_engine, isReduced);
}

void UiEngine::setContrastRaised(bool isRaised) {
    m_isContrastRaised = isRaised;
    if (m_engine)
        Kit::setContrastRaised(*m_engine, isRaised);
}

} // namespace palomet
