#pragma once

#include <cstdint>

/// The clock of the program, in place of SDL's: it goes on only when the game waits for the end of
/// a frame, and then at once. Whatever else asks SDL to sleep, the mixer's thread above all, sleeps
/// by the same clock, so that sounds last as many frames as they do for a player.
namespace simulated_time {

/// Sets the milliseconds since the start. To be called before SDL starts.
void set(std::uint64_t milliseconds);
/// Milliseconds, without the end that SDL's own count has after 49.7 days.
std::uint64_t get();
/// Lets time pass; returns when every thread that is awake by then sleeps again.
void pass(std::uint64_t milliseconds);
/// For the end of the program: nobody sleeps from now on, so that SDL can end its threads.
void stop();

}  // namespace simulated_time
