// Where an encoder's modules go: a string in which "1" is a dark module and "0" a light one, left to right.
#pragma once

#include <string>
#include <string_view>

namespace qvn::barcode {

enum class BarLength { Data, Guard };  ///< guard bars of the EAN symbologies reach below the others

class ModuleSink {
 public:
  virtual ~ModuleSink() = default;
  virtual void append(std::string_view modules, BarLength length) = 0;
};

/// Collects the whole symbol as one string.
class ModuleString final : public ModuleSink {
 public:
  void append(std::string_view modules, BarLength /*length*/) override { text_ += modules; }
  [[nodiscard]] const std::string& text() const noexcept { return text_; }

 private:
  std::string text_;
};

}  // namespace qvn::barcode
