#include "platform/linux/ThreadTrial.h"

#include <future>
#include <system_error>
#include <thread>
#include <vector>

namespace palomet {

std::optional<Failure> trialOfThreads(int count) {
    std::promise<void> end;
    const auto isOver = end.get_future().share();
    std::optional<Failure> problem;
    std::vector<std::jthread> threads;
    try {
        for (int index = 0; index < count; ++index)
            threads.emplace_back([isOver] { isOver.wait(); });
    } catch (const std::system_error &error) {
        problem =
            Failure{QStringLiteral("the system refuses a thread: ") + QString::fromStdString(error.code().message())};
    }
    end.set_value();
    return problem;
}

} // namespace palomet
