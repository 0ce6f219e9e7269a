// qvn barras: barcodes as files, sheets of labels, module strings or in the terminal.
#include <array>
#include <limits>
#include <optional>
#include <vector>

#include "apps/qvn/barcode_preview.h"
#include "apps/qvn/commands.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/progress_bar.h"
#include "qvn/barcode/cairo/barcode_picture.h"
#include "qvn/barcode/cairo/label_sheet.h"
#include "qvn/barcode/cairo/picture_file.h"
#include "qvn/base/runtime_error.h"

namespace qvn::cli {
namespace {

using barcode::Symbol;
using barcode::Symbology;

constexpr std::string_view kDescription = R"(
Dibuja TEXTO como código de barras code128, code39, ean13 (12 dígitos) o ean8
(7 dígitos); el dígito verificador de los EAN se calcula. Con --salida escribe
un archivo .png, .svg o .pdf; sin ella lo muestra en la terminal.

Las imágenes son las del sistema, punto por punto: cada módulo mide un punto,
Code 128 deja fuera de uno a tres dígitos finales (AB12 lleva solo AB en las
barras) y el ancho puede cortar un símbolo largo y todo EAN-8. Para imprimir,
pida además --completo, --ensancha y --ancho-modulo 2 o más.

Con --lista toma un texto de cada renglón de un archivo, o de la entrada
estándar si es «-», y hace un PDF con hojas de etiquetas. Un renglón que no se
puede dibujar se avisa con su número y se omite; el estado es entonces 1.
)";

constexpr std::string_view kExamples = R"(
  qvn barras ean13 750103131130 -o etiqueta.png
  qvn barras code128 ALM-00017 --completo --ensancha --ancho-modulo 2 -o a.svg
  qvn barras code39 PLU-17 --verificador --modulos
      escribe 1 por cada módulo oscuro y 0 por cada claro
  qvn barras code128 --lista claves.txt -o etiquetas.pdf --columnas 4
)";

constexpr Option kHeightOption{"alto", 'a', "NUMERO", "alto de las barras en decenas de puntos (5)"};
constexpr Option kNoCaptionOption{"sin-texto", 0, "", "sin el texto debajo de las barras"};
constexpr Option kCheckOption{"verificador", 0, "", "con el carácter verificador; solo code39"};
constexpr Option kOutputOption{"salida", 'o', "ARCHIVO", "archivo .png, .svg o .pdf"};
constexpr Option kReplaceOption{"reemplaza", 0, "", "escribe aunque el archivo exista"};
constexpr Option kModuleWidthOption{"ancho-modulo", 0, "PUNTOS", "ancho de cada módulo (1)"};
constexpr Option kWholeOption{"completo", 0, "", "code128 con todo el texto, también sus dígitos finales"};
constexpr Option kWidenOption{"ensancha", 0, "", "una imagen tan ancha como el símbolo"};
constexpr Option kModulesOption{"modulos", 0, "", "escribe los módulos en vez de dibujarlos"};
constexpr Option kListOption{"lista", 0, "ARCHIVO", "un texto por renglón, para hojas de etiquetas en PDF"};
constexpr Option kColumnsOption{"columnas", 0, "NUMERO", "etiquetas a lo ancho de la hoja (3)"};
constexpr Option kRowsOption{"renglones", 0, "NUMERO", "etiquetas a lo alto de la hoja (10)"};
constexpr auto kOptions = std::to_array<Option>({kHeightOption, kNoCaptionOption, kCheckOption, kOutputOption,
                                                 kReplaceOption, kModuleWidthOption, kWholeOption, kWidenOption,
                                                 kModulesOption, kListOption, kColumnsOption, kRowsOption});

// The library tells of a caption in a message box; here it ends the drawing.
class Refusal final : public host::MessageBox {
 public:
  void show(std::string_view text, std::int32_t /*style*/, std::string_view title) override {
    throw RuntimeError(error_number::kInvalidCall, std::string(title).append(": ").append(text));
  }
};

std::int32_t numberOption(const Arguments& arguments, const Option& option, std::int32_t usual) {
  const auto value = arguments.value(option.name);
  return value ? keyOperand(*value, "un número en --" + std::string(option.name)) : usual;
}

Symbol symbolOf(const Arguments& arguments) {
  constexpr std::int32_t kUsualHeight = 5;
  Symbol symbol;
  const auto symbology = barcode::symbologyNamed(arguments.operands().front());
  if (!symbology) {
    throw UsageError("no hay la simbología «" + std::string(arguments.operands().front()) +
                     "»; use code128, code39, ean13 o ean8");
  }
  symbol.symbology = *symbology;
  const std::int32_t height = numberOption(arguments, kHeightOption, kUsualHeight);
  if (height < 0 || height > std::numeric_limits<std::int16_t>::max()) {
    throw UsageError("--alto va de 0 a 32767");
  }
  symbol.height = static_cast<std::int16_t>(height);
  symbol.hasCaption = !arguments.has(kNoCaptionOption.name);
  symbol.hasCheckCharacter = arguments.has(kCheckOption.name);
  if (symbol.hasCheckCharacter && *symbology != Symbology::Code39) throw UsageError("--verificador es solo de code39");
  if (arguments.has(kWholeOption.name)) symbol.trailing = barcode::TrailingDigits::All;
  return symbol;
}

barcode::PictureStyle styleOf(const Arguments& arguments) {
  barcode::PictureStyle style;
  style.moduleWidth = numberOption(arguments, kModuleWidthOption, style.moduleWidth);
  style.isWidened = arguments.has(kWidenOption.name);
  return style;
}

// Code 128 has no message of its own for what it cannot encode.
void requireEncodable(const Symbol& symbol) {
  const auto fault = barcode::faultOf(symbol);
  if (fault) Refusal().show(fault->message, 0, fault->title);
  if (symbol.symbology != Symbology::Code128) return;
  for (const char c : symbol.caption) {
    if (c >= ' ' && c <= '~') continue;
    throw RuntimeError(error_number::kSubscriptOutOfRange,
                       "Code 128 solo lleva letras sin acento, dígitos y signos del teclado inglés");
  }
}

std::string outputFile(const Arguments& arguments, Context& context) {
  const auto path = arguments.value(kOutputOption.name);
  if (!path) return {};
  if (!arguments.has(kReplaceOption.name) && context.library.NewFso()->FileExists(*path)) {
    throw RuntimeError(error_number::kFileExists,
                       "Ya existe «" + std::string(*path) + "»; dé otro nombre o agregue --reemplaza");
  }
  return std::string(*path);
}

std::vector<std::string> linesOf(std::string_view path, Context& context) {
  std::vector<std::string> lines;
  std::string text = path == "-" ? readStandardInput() : context.library.NewFso()->OpenTextFile(path)->ReadAll();
  context.library.Separador("\n", text, lines);
  for (std::string& line : lines) {
    if (line.ends_with('\r')) line.pop_back();
  }
  return lines;
}

ExitStatus drawSheets(const Arguments& arguments, Context& context, Symbol symbol) {
  const std::string file = outputFile(arguments, context);
  if (!file.ends_with(".pdf")) throw UsageError("--lista hace un PDF: dé --salida con un nombre que termine en .pdf");
  const barcode::PictureStyle style = styleOf(arguments);
  barcode::SheetLayout layout;
  layout.columns = numberOption(arguments, kColumnsOption, layout.columns);
  layout.rows = numberOption(arguments, kRowsOption, layout.rows);
  barcode::LabelSheet sheet(layout);
  const std::vector<std::string> lines = linesOf(*arguments.value(kListOption.name), context);
  ProgressBar bar(context.messages, true);
  Refusal refusal;
  ExitStatus status = ExitStatus::Done;
  std::int64_t drawn = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    bar.show("etiquetas", static_cast<std::int64_t>(i), static_cast<std::int64_t>(lines.size()));
    if (lines[i].empty()) continue;
    symbol.caption = lines[i];
    try {
      requireEncodable(symbol);
      sheet.add(*pictureOf(symbol, refusal, style));
      ++drawn;
    } catch (const RuntimeError& error) {
      bar.clear();
      context.messages << "qvn: renglón " << std::to_string(i + 1) << ": " << error.description() << "\n";
      status = ExitStatus::Failed;
    }
  }
  bar.clear();
  if (drawn == 0) throw RuntimeError(error_number::kInvalidCall, "Ningún renglón se pudo dibujar; no se hizo el PDF");
  const int pages = sheet.pages();
  barcode::writePictureFile(file, sheet.finish());
  context.out << std::to_string(drawn) << (drawn == 1 ? " etiqueta en " : " etiquetas en ") << std::to_string(pages)
              << (pages == 1 ? " hoja: " : " hojas: ") << file << "\n";
  return status;
}

ExitStatus runBarras(const Arguments& arguments, Context& context) {
  const bool isList = arguments.has(kListOption.name);
  if (arguments.operands().size() != (isList ? 1U : 2U)) {
    throw UsageError(isList ? "con --lista se da solo la simbología" : "se espera una simbología y un texto");
  }
  Symbol symbol = symbolOf(arguments);
  if (isList) return drawSheets(arguments, context, std::move(symbol));
  symbol.caption = arguments.operands()[1];
  requireEncodable(symbol);
  if (arguments.has(kModulesOption.name)) {
    context.out << modulesOf(symbol) << "\n";
    return ExitStatus::Done;
  }
  const std::string file = outputFile(arguments, context);
  if (file.empty()) {
    context.out << barcodePreview(modulesOf(symbol), symbol.hasCaption ? symbol.caption : "", context.out.isTerminal());
    return ExitStatus::Done;
  }
  Refusal refusal;
  pictureOf(symbol, refusal, styleOf(arguments))->save(file);
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kBarrasCommand{
    "barras", "dibuja códigos de barras", "SIMBOLOGIA [TEXTO]", kDescription, kOptions, kExamples, runBarras};

}  // namespace qvn::cli
