#pragma once

/// What the whole program has taken from the heap with `new`.
namespace allocations {

/// How often so far.
long count();
/// How many of them have not been given back.
long live();

}  // namespace allocations
