#include "bench/soak/simulated_time.h"

#include <SDL.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

namespace {

class Clock {
public:
    /// The threads that sleep are still there when the program ends: the clock stays, too.
    static Clock& getInstance() {
        static Clock& clock = *new Clock;
        return clock;
    }

    bool isMain() const { return std::this_thread::get_id() == main_thread; }

    void set(std::uint64_t milliseconds) {
        const std::lock_guard lock(mutex);
        time = milliseconds;
    }

    std::uint64_t get() {
        const std::lock_guard lock(mutex);
        return time;
    }

    void pass(std::uint64_t milliseconds) {
        std::unique_lock lock(mutex);
        time += milliseconds;
        moved.notify_all();
        settled.wait(lock,
                     [this] { return awake == 0 && (alarms.empty() || *alarms.begin() > time); });
    }

    void stop() {
        const std::lock_guard lock(mutex);
        stopped = true;
        moved.notify_all();
    }

    /// Who sleeps often wakes as often as he wants on the whole, though only between frames.
    void sleep(std::uint64_t milliseconds) {
        thread_local bool is_counted = false;
        thread_local std::uint64_t alarm = 0;
        constexpr std::uint64_t longest_lag = 1000;

        std::unique_lock lock(mutex);
        alarm = std::max(alarm, time - std::min(time, longest_lag)) + milliseconds;
        if (alarm <= time && is_counted) return;

        if (is_counted) --awake;
        const auto entry = alarms.insert(alarm);
        settled.notify_all();
        moved.wait(lock, [this] { return alarm <= time || stopped; });
        alarms.erase(entry);
        ++awake;
        is_counted = true;
    }

private:
    Clock() = default;

    const std::thread::id main_thread = std::this_thread::get_id();
    std::mutex mutex;
    std::condition_variable moved, settled;
    std::uint64_t time = 0;
    std::multiset<std::uint64_t> alarms;  ///< of the threads that sleep
    bool stopped = false;
    int awake = 0;  ///< threads that have slept before and do not now
};

}  // namespace

void simulated_time::set(std::uint64_t milliseconds) {
    Clock::getInstance().set(milliseconds);
}

std::uint64_t simulated_time::get() {
    return Clock::getInstance().get();
}

void simulated_time::pass(std::uint64_t milliseconds) {
    Clock::getInstance().pass(milliseconds);
}

void simulated_time::stop() {
    Clock::getInstance().stop();
}

Uint32 SDL_GetTicks() {
    return static_cast<Uint32>(Clock::getInstance().get());
}

void SDL_Delay(Uint32 milliseconds) {
    Clock& clock = Clock::getInstance();
    if (clock.isMain())
        clock.pass(milliseconds);
    else
        clock.sleep(milliseconds);
}
