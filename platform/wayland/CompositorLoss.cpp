#include "platform/wayland/CompositorLoss.h"

#include <QCoreApplication>
#include <QThread>

#include <unistd.h>

#include <mutex>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

// The toolkit's handler of messages has nothing but global state to work with.
std::mutex mutex;
std::function<void()> pending;
QtMessageHandler otherwise = nullptr;

std::function<void()> take() {
    const std::lock_guard lock(mutex);
    return std::exchange(pending, nullptr);
}

void tell() {
    if (const auto onLoss = take())
        onLoss();
}

/// What the toolkit says is all that it does before it ends the program, on the thread that has noticed.
void handle(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    otherwise(type, context, text);
    auto *const application = QCoreApplication::instance();
    if (application == nullptr || !text.startsWith("The Wayland connection "_L1))
        return;
    if (QThread::currentThread() == application->thread())
        return tell();
    // The main thread ends the program, and this one never comes to it.
    QMetaObject::invokeMethod(application, &tell, Qt::QueuedConnection);
    for (;;)
        pause();
}

} // namespace

void onCompositorLoss(std::function<void()> onLoss) {
    const std::lock_guard lock(mutex);
    pending = std::move(onLoss);
    if (otherwise == nullptr)
        otherwise = qInstallMessageHandler(&handle);
}

} // namespace palomet
