// The plain message box: a text that the person must see before the work goes on.
#pragma once

#include <cstdint>
#include <string_view>

namespace qvn::host {

class MessageBox {
 public:
  virtual ~MessageBox() = default;
  /// Shows `text` and returns when it was seen. `style` is the platform's sum of button and icon codes, 0 for an OK
  /// button alone; an empty `title` leaves the choice of one to the box.
  virtual void show(std::string_view text, std::int32_t style, std::string_view title) = 0;
};

}  // namespace qvn::host
