#include "qvn/host/message_box.h"

#include <iostream>

namespace qvn::host {
namespace {

class TerminalMessageBox final : public MessageBox {
 public:
  void show(std::string_view text, std::int32_t /*style*/, std::string_view /*title*/) override {
    std::cerr << text << '\n' << std::flush;
  }
};

}  // namespace

std::shared_ptr<MessageBox> terminalMessageBox() { return std::make_shared<TerminalMessageBox>(); }

}  // namespace qvn::host
