// A message box that nobody sees.
#pragma once

#include <string>
#include <vector>

#include "qvn/host/message_box.h"

namespace qvn::test {

/// Keeps each message as "text|style|title".
class RecordedMessages final : public host::MessageBox {
 public:
  void show(std::string_view text, std::int32_t style, std::string_view title) override {
    shown.push_back(std::string(text) + "|" + std::to_string(style) + "|" + std::string(title));
  }
  std::vector<std::string> shown;
};

}  // namespace qvn::test
