#pragma once

#include <SDL.h>

/// The game without a window. What it draws goes nowhere; every object counts as in view.
namespace blind {

/// Starts SDL, which still has a queue of events and a clock, and what else of it `subsystems`
/// names. Throws Exception.
void start(int subsystems);

/// How many display lists and textures there are that were not deleted yet.
long countNames();

}  // namespace blind
