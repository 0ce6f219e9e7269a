#include "qvn/barcode/symbol.h"

#include "qvn/barcode/code39.h"
#include "qvn/barcode/ean.h"
#include "qvn/barcode/oden_barcode.h"
#include "qvn/base/runtime_error.h"

namespace qvn::barcode {

std::optional<CaptionFault> captionFault(const Symbol& symbol) noexcept {
  switch (symbol.symbology) {
    case Symbology::Code128:
      return std::nullopt;
    case Symbology::Code39:
      return code39Fault(symbol.caption);
    case Symbology::Ean13:
      return ean13Fault(symbol.caption);
    case Symbology::Ean8:
      return ean8Fault(symbol.caption);
  }
  return std::nullopt;
}

std::string moduleString(const Symbol& symbol) {
  if (captionFault(symbol)) {
    throw RuntimeError(error_number::kInvalidCall);
  }
  ModuleString modules;
  switch (symbol.symbology) {
    case Symbology::Code128:
      encodeCode128(symbol.caption, symbol.trailing, modules);
      break;
    case Symbology::Code39:
      encodeCode39(symbol.caption, symbol.hasCheckCharacter ? WithCheckCharacter::Yes : WithCheckCharacter::No,
                   modules);
      break;
    case Symbology::Ean13:
      encodeEan13(symbol.caption, modules);
      break;
    case Symbology::Ean8:
      encodeEan8(symbol.caption, modules);
      break;
  }
  return modules.text();
}

void drawSymbol(const Symbol& symbol, const SymbolLook& look, Canvas& canvas, host::MessageBox& messages) {
  const odenBarcode barcode(messages, symbol.trailing);
  switch (symbol.symbology) {
    case Symbology::Code128:
      return barcode.Code128(canvas, look.barHeight, symbol.caption, look.hasCaption);
    case Symbology::Code39:
      return barcode.Code39(canvas, look.barHeight, symbol.caption, symbol.hasCheckCharacter, look.hasCaption);
    case Symbology::Ean13:
      return barcode.EAN13(canvas, look.barHeight, symbol.caption, look.hasCaption);
    case Symbology::Ean8:
      return barcode.EAN8(canvas, look.barHeight, symbol.caption, look.hasCaption);
  }
}

}  // namespace qvn::barcode
