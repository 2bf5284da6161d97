// A whole backend in a process of its own, to be supervised and killed. It says "pronto PID", and is at its port from
// when the file $BACKEND_STATE is there, in the state that the file says.

#include "tests/palomet/BackendAtItsPort.h"
#include "tests/support/Processes.h"

#include <cstdio>

using namespace palomet;

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    std::printf("pronto %lld\n", static_cast<long long>(QCoreApplication::applicationPid()));
    std::fflush(stdout);
    QByteArray state;
    const auto isThere = [&] {
        state = test::contentOf(qEnvironmentVariable("BACKEND_STATE"));
        return !state.isEmpty();
    };
    if (!test::eventually(isThere, std::chrono::hours{1}))
        return 1;
    test::BackendAtItsPort backend;
    backend.enter(QString::fromUtf8(state));
    return QCoreApplication::exec();
}
