#pragma once

#include <QByteArray>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

namespace palomet::test {

/// An X server for the program that is about to become its client: started before the toolkit is, and named in
/// `DISPLAY`. It ends with this object.
class XServer {
public:
    explicit XServer(const char *screen) {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        m_process = fork();
        if (m_process == 0) {
            // A test that crashes takes it along: ctest waits for everybody who holds its output.
            prctl(PR_SET_PDEATHSIG, SIGTERM);
            const auto end = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", end.c_str(), "-noreset", "-nolisten", "tcp", "-screen", "0", screen,
                   nullptr);
            _exit(1);
        }
        close(ends[1]);
        QByteArray number;
        for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';)
            number += digit;
        close(ends[0]);
        setenv("DISPLAY", (':' + number).constData(), 1);
        unsetenv("WAYLAND_DISPLAY");
    }
    /// The scale that the desktop is set to, as programs find it there: 1.5 is 144 dots per inch.
    static void setScale(double scale) {
        const auto dots = std::to_string(static_cast<int>(96 * scale));
        const auto set = "echo 'Xft.dpi: " + dots + "' | xrdb -nocpp -merge";
        if (std::system(set.c_str()) != 0)
            std::abort();
    }
    ~XServer() {
        if (m_process <= 0)
            return;
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

private:
    pid_t m_process = -1;
};

} // namespace palomet::test
