// Echoes of a host as people read them: a text for each, and what they come to.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "qvn/system/echo_port.h"

namespace qvn::cli {

/// "respuesta en 0.045 ms", or why there is none. `wait` is how long one was waited for, as the person wrote it.
std::string echoText(const system::EchoResult& result, std::string_view wait);

/// The words for what kept a request from being sent.
std::string sendingErrorText(int systemError);

/// Echoes that have ended.
class EchoStatistics {
 public:
  void add(const system::EchoResult& result);
  [[nodiscard]] bool hasReplies() const { return received_ > 0; }

  /// "4 enviados, 3 recibidos, 25 % perdido" and, when there were replies, a line with the shortest, mean and longest
  /// time.
  [[nodiscard]] std::string text() const;

 private:
  std::int64_t sent_ = 0;
  std::int64_t received_ = 0;
  std::chrono::microseconds shortest_{};
  std::chrono::microseconds longest_{};
  std::chrono::microseconds total_{};
};

}  // namespace qvn::cli
