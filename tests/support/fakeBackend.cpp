// A backend to be supervised. It says "pronto PID" and then does what $FAKE_BACKEND says:
//   (nothing)  waits, and ends when it is asked to
//   exit       ends by itself
//   stubborn   waits, and does not listen when it is asked to end
//   family     has two children, says "filho PID" of each and waits; neither they nor it listen. The second child has
//              left the group
//   parent     the same, but it ends when it is asked to
//   orphans    the same, but it ends by itself
//   farewell   waits, and says "adeus" when it is asked to end
//   talk       says 2,000 lines, then waits

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

void say(const std::string &line) {
    const std::string whole = line + '\n';
    [[maybe_unused]] const auto written = write(STDOUT_FILENO, whole.data(), whole.size());
}

[[noreturn]] void wait() {
    for (;;)
        pause();
}

enum class Group { Parents, Own };

void bear(Group group) {
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGTERM, SIG_IGN);
        if (group == Group::Own)
            setsid();
        wait();
    }
    while (group == Group::Own && getpgid(child) != child)
        usleep(1000);
    say("filho " + std::to_string(child));
}

} // namespace

int main() {
    const char *wanted = std::getenv("FAKE_BACKEND");
    const std::string behaviour = wanted == nullptr ? "" : wanted;
    if (behaviour == "stubborn" || behaviour == "family" || behaviour == "orphans")
        signal(SIGTERM, SIG_IGN);
    if (behaviour == "farewell") {
        signal(SIGTERM, [](int) {
            say("adeus");
            _exit(0);
        });
    }
    if (behaviour == "family" || behaviour == "orphans" || behaviour == "parent") {
        bear(Group::Parents);
        bear(Group::Own);
    }
    say("pronto " + std::to_string(getpid()));
    if (behaviour == "exit" || behaviour == "orphans")
        return 3;
    if (behaviour == "talk") {
        for (int line = 0; line < 2000; ++line)
            say("voz " + std::string(200, 'v'));
        say("calada");
    }
    wait();
}
