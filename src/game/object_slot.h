#pragma once

#include <memory>

class _GameObject;

/// A place in a galaxy that holds one object, or null after the object has gone. Whoever aims at an
/// object keeps its slot and asks `slot && *slot` before each use: a slot never comes to hold
/// another object, and stays readable for as long as somebody keeps it.
using ObjectSlot = std::shared_ptr<_GameObject*>;
