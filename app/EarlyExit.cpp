#include "app/EarlyExit.h"

#include <cstdlib>
#include <thread>
#include <utility>

namespace palomet {

namespace {

// What runs at the exit has nothing but global state to work with.
EarlyExit *current = nullptr;
std::thread::id owner;

} // namespace

EarlyExit::EarlyExit(std::function<void()> onExit)
    : m_onExit(std::move(onExit)) {
    // It cannot be taken back, and finds nobody after this object's end.
    static const int registered = std::atexit(&EarlyExit::run);
    static_cast<void>(registered);
    current = this;
    owner = std::this_thread::get_id();
}

EarlyExit::~EarlyExit() {
    current = nullptr;
}

void EarlyExit::run() {
    if (current == nullptr || owner != std::this_thread::get_id())
        return;
    // Once, even if what runs ends the program itself.
    std::exchange(current, nullptr)->m_onExit();
}

} // namespace palomet
