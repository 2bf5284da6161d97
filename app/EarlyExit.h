#pragma once

#include <functional>

namespace palomet {

/// Runs something when `exit()` ends the program while this object is there. Nothing of ours calls that; the toolkit
/// does, from within its event loop, when its display has gone, and no destructor on the stack runs then. What runs has
/// no event loop any more: to run one would find the display gone once more. On the thread that made this object, which
/// is the main one; an exit on another is left alone. One object at a time.
class EarlyExit {
public:
    explicit EarlyExit(std::function<void()> onExit);
    EarlyExit(const EarlyExit &) = delete;
    EarlyExit &operator=(const EarlyExit &) = delete;
    ~EarlyExit();

private:
    static void run();

    std::function<void()> m_onExit;
};

} // namespace palomet
