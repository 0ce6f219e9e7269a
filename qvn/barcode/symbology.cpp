#include "qvn/barcode/symbology.h"

#include <algorithm>
#include <array>

#include "qvn/barcode/code39.h"
#include "qvn/barcode/ean.h"
#include "qvn/barcode/module_sink.h"
#include "qvn/barcode/oden_barcode.h"
#include "qvn/base/letter_case.h"

namespace qvn::barcode {

std::optional<Symbology> symbologyNamed(std::string_view name) {
  struct Row {
    std::string_view name;
    Symbology symbology;
  };
  static constexpr auto kRows = std::to_array<Row>({{"code128", Symbology::Code128},
                                                    {"code39", Symbology::Code39},
                                                    {"ean13", Symbology::Ean13},
                                                    {"ean8", Symbology::Ean8}});
  const auto* row = std::ranges::find_if(kRows, [&](const Row& known) { return equalIgnoringCase(known.name, name); });
  if (row == kRows.end()) return std::nullopt;
  return row->symbology;
}

std::optional<CaptionFault> faultOf(const Symbol& symbol) {
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

std::string modulesOf(const Symbol& symbol) {
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

void draw(const Symbol& symbol, Canvas& canvas, host::MessageBox& messages) {
  const odenBarcode barcode(messages, symbol.trailing);
  switch (symbol.symbology) {
    case Symbology::Code128:
      barcode.Code128(canvas, symbol.height, symbol.caption, symbol.hasCaption);
      break;
    case Symbology::Code39:
      barcode.Code39(canvas, symbol.height, symbol.caption, symbol.hasCheckCharacter, symbol.hasCaption);
      break;
    case Symbology::Ean13:
      barcode.EAN13(canvas, symbol.height, symbol.caption, symbol.hasCaption);
      break;
    case Symbology::Ean8:
      barcode.EAN8(canvas, symbol.height, symbol.caption, symbol.hasCaption);
      break;
  }
}

}  // namespace qvn::barcode
