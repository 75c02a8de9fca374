#include "game/game_event.h"

#include "game/starship.h"

TankEmptyEvent::TankEmptyEvent(Starship* s)
    : GameEvent((s ? s->getName() : "unknown") + ": no fuel"), ship(s) {}
