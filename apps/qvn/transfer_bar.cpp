#include "apps/qvn/transfer_bar.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "apps/qvn/interruption.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/dialogs/progress_text.h"

namespace qvn::cli {
namespace {

constexpr std::chrono::milliseconds kBetween{200};
constexpr std::size_t kNameColumns = 20;

}  // namespace

std::string transferLabel(const mysqladmin::TransferProgress& at, std::chrono::duration<double> elapsed) {
  static constexpr double kMegabyte = 1e6;
  const double seconds = std::max(elapsed.count(), 0.001);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), ", %.1f MB/s", static_cast<double>(at.bytes) / seconds / kMegabyte);
  const std::string label = safeText(at.table, kNameColumns) + text.data();
  const std::string left = dialogs::timeLeft(elapsed, at.done, at.total);
  return left.empty() ? label : label + ", " + left;
}

void TransferBar::show(const mysqladmin::TransferProgress& at) {
  const Clock::time_point now = Clock::now();
  if (now - shown_ < kBetween) return;
  shown_ = now;
  bar_.show(transferLabel(at, now - begun_), std::min(at.done, at.total), at.total);
}

mysqladmin::TransferObserver TransferBar::observer() {
  return [this](const mysqladmin::TransferProgress& at) {
    show(at);
    return !Interruption::isRequested();
  };
}

}  // namespace qvn::cli
