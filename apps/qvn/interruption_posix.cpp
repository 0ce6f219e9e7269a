#include "apps/qvn/interruption.h"

#include <array>
#include <csignal>
#include <cstddef>

namespace qvn::cli {
namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM};

// What a signal handler may touch has no owner.
volatile std::sig_atomic_t isInterrupted = 0;          // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
std::array<struct sigaction, kSignals.size()> former;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace

Interruption::Interruption() {
  isInterrupted = 0;
  struct sigaction action {};
  action.sa_handler = [](int) { isInterrupted = 1; };
  action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
  for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &action, &former[i]);
}

Interruption::~Interruption() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &former[i], nullptr);
}

bool Interruption::isRequested() { return isInterrupted != 0; }

}  // namespace qvn::cli
