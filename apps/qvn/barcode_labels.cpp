#include "apps/qvn/barcode_labels.h"

#include <algorithm>
#include <cstdint>

#include "apps/qvn/interruption.h"
#include "apps/qvn/progress_bar.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/barcode/cairo/label_sheet.h"
#include "qvn/barcode/library_pictures.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::cli {
namespace {

using barcode::Symbol;
using barcode::Symbology;

std::string_view advice(Symbology symbology) {
  switch (symbology) {
    case Symbology::Code128:
      return "Code 128 lleva letras sin acento, cifras y signos del teclado inglés";
    case Symbology::Code39:
      return "Code 39 lleva mayúsculas sin acento, cifras, blancos y - . $ / + % *";
    case Symbology::Ean13:
      return "EAN-13 lleva 12 cifras; el dígito verificador se calcula";
    case Symbology::Ean8:
      return "EAN-8 lleva 7 cifras; el dígito verificador se calcula";
  }
  return "";
}

std::string unfit(const Symbol& symbol) {
  return "«" + safeText(symbol.caption, 40) + "» no se puede codificar: " + std::string(advice(symbol.symbology));
}

// Captions are looked at before they are drawn, so that there is nothing to tell.
class NoMessages final : public host::MessageBox {
 public:
  void show(std::string_view text, std::int32_t /*style*/, std::string_view title) override {
    throw RuntimeError(error_number::kInvalidCall, std::string(title) + ": " + std::string(text));
  }
};

barcode::PicturePtr draw(const LabelWishes& wishes) {
  NoMessages messages;
  return barcode::symbolPicture(wishes.symbol, wishes.look, wishes.fit, messages);
}

// One to three digits that Code 128 leaves out.
std::string_view digitsLeftOut(const Symbol& symbol) {
  if (symbol.symbology != Symbology::Code128 || symbol.trailing == barcode::TrailingDigits::All) {
    return {};
  }
  const std::size_t last = symbol.caption.find_last_not_of("0123456789");
  const std::string_view digits = std::string_view(symbol.caption).substr(last == std::string::npos ? 0 : last + 1);
  return digits.size() < 4 ? digits : std::string_view{};
}

bool isCropped(const barcode::Drawing& drawing) {
  return std::ranges::any_of(drawing.bars,
                             [&](const auto& bar) { return bar.color == 0 && bar.x + bar.width > drawing.width; });
}

std::string_view nextLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (line.ends_with('\r')) {
    line.remove_suffix(1);
  }
  return line;
}

}  // namespace

std::string labelModules(const Symbol& symbol) {
  if (barcode::captionFault(symbol)) {
    throw RuntimeError(error_number::kInvalidCall, unfit(symbol));
  }
  try {
    return barcode::moduleString(symbol);
  } catch (const RuntimeError& error) {
    if (error.number() != error_number::kSubscriptOutOfRange) {
      throw;
    }
    throw RuntimeError(error.number(), unfit(symbol));
  }
}

barcode::PicturePtr labelPicture(const LabelWishes& wishes, Context& context) {
  labelModules(wishes.symbol);
  barcode::PicturePtr picture = draw(wishes);
  if (const std::string_view digits = digitsLeftOut(wishes.symbol); !digits.empty()) {
    context.messages << "qvn: las barras no llevan el final «" << digits << "»; con --completo lo llevan\n";
  }
  if (isCropped(picture->drawing())) {
    context.messages << "qvn: la imagen corta las barras y no se podrá leer; con --ensancha salen enteras\n";
  }
  return picture;
}

ExitStatus writeLabelSheet(const LabelWishes& wishes, std::string_view captions, std::string_view path,
                           Context& context) {
  const auto total = static_cast<std::int64_t>(std::ranges::count(captions, '\n')) + 1;
  barcode::LabelSheet sheet(path, {});
  ProgressBar bar(context.messages, true);
  const Interruption interruption;
  ExitStatus status = ExitStatus::Done;
  LabelWishes label = wishes;
  std::int64_t labels = 0;
  std::int64_t number = 0;
  for (std::string_view rest = captions; !rest.empty() && !Interruption::isRequested();) {
    bar.show("etiquetas", number, total);
    ++number;
    label.symbol.caption = nextLine(rest);
    if (utf8::trimBlanks(label.symbol.caption).empty()) {
      continue;
    }
    try {
      labelModules(label.symbol);
      sheet.add(draw(label)->drawing());
      ++labels;
    } catch (const RuntimeError& error) {
      bar.clear();
      context.messages << "qvn: renglón " << std::to_string(number) << ": " << safeText(error.description()) << "\n";
      status = ExitStatus::Failed;
    }
  }
  sheet.finish();
  bar.clear();
  if (Interruption::isRequested()) {
    context.messages << "qvn: se interrumpió en el renglón " << std::to_string(number) << "\n";
    status = ExitStatus::Failed;
  }
  context.out << safeText(path) << ": " << std::to_string(labels) << (labels == 1 ? " etiqueta, " : " etiquetas, ")
              << std::to_string(sheet.pages()) << (sheet.pages() == 1 ? " hoja\n" : " hojas\n");
  return status;
}

}  // namespace qvn::cli
