#include "fault_point.h"

namespace ksv {
namespace {
FaultHook& hook() {
  static FaultHook h;
  return h;
}
}  // namespace

void setFaultHook(FaultHook h) { hook() = std::move(h); }

void faultPoint(const char* step) {
  if (hook()) hook()(step);
}

}  // namespace ksv
