#include "platform/ui/equal_notices.h"

#include "platform/ui/busy_guard.h"

namespace {
constexpr int kPasses = -1;
}

EqualNotices::Treatment EqualNotices::next(const QString& said) {
  if (!BusyGuard::active()) return Treatment::Shown;
  if (command_ != BusyGuard::number()) shown_.clear();
  command_ = BusyGuard::number();
  last_ = said;
  int& times = shown_[said];
  if (times == kPasses) return Treatment::LetPass;
  return ++times == 1 ? Treatment::Shown : Treatment::ShownWithOffer;
}

void EqualNotices::letPass() {
  shown_[last_] = kPasses;
}
