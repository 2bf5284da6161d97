#include "app/Application.h"

#include <QEvent>
#include <QEventLoop>

#include <gtest/gtest.h>

using namespace palomet;

// The test program's own application object.

TEST(Application, TakesTheEndOfTheSessionForARequest) {
    int requests = 0;
    QObject context;
    QObject::connect(qobject_cast<Application *>(qApp), &Application::quitRequested, &context, [&] { ++requests; });
    QEventLoop loop;
    QMetaObject::invokeMethod(
        &loop,
        [&] {
            QEvent end(QEvent::Quit);
            QCoreApplication::sendEvent(qApp, &end);
            QCoreApplication::sendEvent(qApp, &end);
            EXPECT_TRUE(loop.isRunning());
            loop.exit(7);
        },
        Qt::QueuedConnection);
    // The receiver of the request ends the loop, nobody else.
    EXPECT_EQ(loop.exec(), 7);
    EXPECT_EQ(requests, 2);
}

TEST(Application, DoesNotEndWithItsLastWindow) {
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
}
