#pragma once
// Named steps of the operations that replace or write a planning file. The
// tests set a hook that kills the process at one of them, to prove that a
// death at any step leaves the planning whole; without a hook a step costs a
// test of one pointer.

#include <functional>

namespace ksv {

using FaultHook = std::function<void(const char* step)>;

// Installs the hook (an empty one removes it).
void setFaultHook(FaultHook hook);

// Called by the operations at each named step.
void faultPoint(const char* step);

}  // namespace ksv
