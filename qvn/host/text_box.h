// An input box of the host, as the library reads it. The library never writes its text.
//
//   SimpleTextBox box("1234.5", "SD");  text::AplicaFormato(box, nullptr, "#,##0.00") == "1,234.50"
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "qvn/base/variant.h"

namespace qvn::host {

/// Derives from Object, so that a Variant can hold it. An adapter whose control cannot answer throws RuntimeError.
class TextBox : public Object {
 public:
  /// What the box shows, in UTF-8.
  [[nodiscard]] virtual std::string Text() const = 0;
  /// The format code that the host stored with the box; see text::AplicaFormato.
  [[nodiscard]] virtual std::string Tag() const = 0;
  /// Characters before the caret or before the selection.
  [[nodiscard]] virtual std::int32_t SelStart() const = 0;
  virtual void setSelStart(std::int32_t position) = 0;
};

/// A box without a screen: its properties are plain values.
struct SimpleTextBox final : TextBox {
  SimpleTextBox() = default;
  explicit SimpleTextBox(std::string shownText, std::string formatTag = {}, std::int32_t caret = 0)
      : text(std::move(shownText)), tag(std::move(formatTag)), selStart(caret) {}

  [[nodiscard]] std::string Text() const override { return text; }
  [[nodiscard]] std::string Tag() const override { return tag; }
  [[nodiscard]] std::int32_t SelStart() const override { return selStart; }
  void setSelStart(std::int32_t position) override { selStart = position; }

  std::string text;
  std::string tag;
  std::int32_t selStart = 0;
};

}  // namespace qvn::host
