// A front end to be killed: starts the program named as its first argument with its output in the file named as the
// second, and waits. It ends when it could not. A third argument names a guard.

#include "platform/linux/GroupGuard.h"
#include "platform/linux/startChildProcess.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    QFile output(arguments.at(2));
    if (!output.open(QFile::WriteOnly | QFile::Append))
        return 1;
    palomet::ChildProcess::Launch launch;
    launch.program = arguments.at(1);
    launch.workingDirectory = u"/"_s;
    launch.output = output.handle();
    const auto guard = std::make_shared<palomet::GroupGuard>(arguments.value(3));
    const auto child = palomet::startChildProcess(
        launch, [] {}, guard);
    return child ? QCoreApplication::exec() : 2;
}
