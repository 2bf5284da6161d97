#include "platform/linux/startChildProcess.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/GroupGuard.h"
#include "platform/linux/LinuxChildProcess.h"

#include <QByteArray>
#include <QFile>

#include <fcntl.h>
#include <linux/close_range.h>
#include <signal.h>
#include <sys/prctl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <system_error>
#include <type_traits>

// The header of glibc 2.36 does not say that its functions are C.
extern "C" {
#include <sys/pidfd.h>
}

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// The child's message through the pipe when it could not become the program.
struct Refusal {
    enum class Step { EnterFolder, RunProgram };
    Step step;
    int error;
};
static_assert(std::is_trivially_copyable_v<Refusal>);

Failure failure(const QString &subject, int error) {
    return {subject + u": "_s + QString::fromStdString(std::system_category().message(error))};
}

/// Strings in the form that exec wants them; the pointers live as long as this does.
class StringArray {
public:
    void append(QByteArray string) { m_strings.push_back(std::move(string)); }

    /// Call after the last `append`.
    [[nodiscard]] char **pointers() {
        m_pointers.clear();
        for (auto &string : m_strings)
            m_pointers.push_back(string.data());
        m_pointers.push_back(nullptr);
        return m_pointers.data();
    }

private:
    std::vector<QByteArray> m_strings;
    std::vector<char *> m_pointers;
};

StringArray argumentsFor(const ChildProcess::Launch &launch) {
    StringArray arguments;
    arguments.append(QFile::encodeName(launch.program));
    for (const auto &argument : launch.arguments)
        arguments.append(argument.toLocal8Bit());
    return arguments;
}

/// This process's own variables byte for byte, with those of `launch` in the place of their namesakes.
StringArray environmentFor(const ChildProcess::Launch &launch) {
    StringArray environment;
    std::vector<QByteArray> prefixes;
    for (const auto &[name, value] : launch.environment) {
        prefixes.push_back(name.toLocal8Bit() + '=');
        environment.append(prefixes.back() + value.toLocal8Bit());
    }
    for (char **variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        const auto entry = QByteArray::fromRawData(*variable, static_cast<qsizetype>(qstrlen(*variable)));
        const bool isReplaced =
            std::any_of(prefixes.begin(), prefixes.end(), [&](const auto &prefix) { return entry.startsWith(prefix); });
        if (!isReplaced)
            environment.append(QByteArray(entry.constData(), entry.size()));
    }
    return environment;
}

/// Everything that the child needs, made before the fork: after it only async-signal-safe calls are allowed.
struct Preparation {
    const char *folder;
    char **arguments;
    char **environment;
    pid_t parent;
    int input;
    int output;
    int report;
    int guard; ///< Or -1.
};

[[noreturn]] void refuse(int report, Refusal::Step step) {
    const Refusal refusal{step, errno};
    [[maybe_unused]] const auto written = write(report, &refusal, sizeof refusal);
    _exit(127);
}

[[noreturn]] void becomeProgram(const Preparation &prepared) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    // The parent may have ended before the kernel was asked to watch it.
    if (getppid() != prepared.parent)
        _exit(127);
    // A guard does it better: it reaches those who have left the group, and asks before it kills.
    if (prepared.guard >= 0 && GroupGuard::tell(prepared.guard, getpid()))
        prctl(PR_SET_PDEATHSIG, 0);
    dup2(prepared.input, STDIN_FILENO);
    dup2(prepared.output, STDOUT_FILENO);
    dup2(prepared.output, STDERR_FILENO);
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);

    // Handlers go with exec, but what is ignored stays ignored and what is blocked stays blocked.
    for (int number = 1; number < NSIG; ++number)
        signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);

    if (chdir(prepared.folder) != 0)
        refuse(prepared.report, Refusal::Step::EnterFolder);
    execve(prepared.arguments[0], prepared.arguments, prepared.environment);
    refuse(prepared.report, Refusal::Step::RunProgram);
}

/// Forks with every signal blocked, so that no handler of this process ever runs in the child.
pid_t forkInto(const Preparation &prepared) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t child = fork();
    if (child == 0)
        becomeProgram(prepared);
    const int error = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = error;
    return child;
}

/// The same file above the three standard descriptors, which the child is going to replace.
Descriptor aboveStandard(const Descriptor &descriptor) {
    return Descriptor(fcntl(descriptor.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

struct Pipe {
    Descriptor reading;
    Descriptor writing;
};

Pipe makePipe() {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    return {Descriptor(ends[0]), aboveStandard(Descriptor(ends[1]))};
}

/// Waits until the child has become the program, or says why it could not.
std::optional<Refusal> heardFrom(const Descriptor &pipe) {
    Refusal refusal{};
    ssize_t length;
    do {
        length = read(pipe.get(), &refusal, sizeof refusal);
    } while (length < 0 && errno == EINTR);
    return length == sizeof refusal ? std::optional(refusal) : std::nullopt;
}

} // namespace

Result<std::unique_ptr<ChildProcess>>
startChildProcess(const ChildProcess::Launch &launch, std::function<void()> onExit, std::shared_ptr<GroupGuard> guard) {
    const Descriptor input = aboveStandard(Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC)));
    const Descriptor output(fcntl(launch.output, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    Pipe pipe = makePipe();
    if (!input.isOpen() || !output.isOpen() || !pipe.writing.isOpen())
        return failure(launch.program, errno);

    auto arguments = argumentsFor(launch);
    auto environment = environmentFor(launch);
    const QByteArray folder = QFile::encodeName(launch.workingDirectory);
    const pid_t child = forkInto({folder.constData(), arguments.pointers(), environment.pointers(), getpid(),
                                  input.get(), output.get(), pipe.writing.get(), guard ? guard->descriptor() : -1});
    if (child < 0)
        return failure(launch.program, errno);
    pipe.writing.reset();
    if (const auto refusal = heardFrom(pipe.reading)) {
        reap(child, 0);
        const bool isFolder = refusal->step == Refusal::Step::EnterFolder;
        return failure(isFolder ? launch.workingDirectory : launch.program, refusal->error);
    }
    Descriptor handle(pidfd_open(child, 0));
    if (!handle.isOpen()) {
        const int error = errno;
        kill(-child, SIGKILL);
        reap(child, 0);
        return failure(launch.program, error);
    }
    if (guard)
        guard->keep(child);
    return std::unique_ptr<ChildProcess>(
        std::make_unique<LinuxChildProcess>(child, std::move(handle), std::move(guard), std::move(onExit)));
}

} // namespace palomet
