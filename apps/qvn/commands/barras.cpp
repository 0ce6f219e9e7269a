// qvn barras: barcodes as pictures, module strings, sheets of labels and previews.
#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string>

#include "apps/qvn/barcode_labels.h"
#include "apps/qvn/barcode_preview.h"
#include "apps/qvn/commands.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"

namespace qvn::cli {
namespace {

using barcode::Symbology;

constexpr std::string_view kDescription = R"(
Dibuja TEXTO como código de barras: «code128», «code39», «ean13» (12 cifras) o
«ean8» (7 cifras); el dígito verificador de EAN se calcula. Con --salida escribe
una imagen en el formato de su terminación: .png, .svg o .pdf. Sin --salida
muestra el código en la terminal.

Los dibujos son los de Barcode128, Barcode3de9, BarcodeEAN13 y BarcodeEAN8, con
módulos de un pixel y un texto de 10 pixeles. Code 128 deja fuera de las barras
de una a tres cifras al final del texto, aunque las escribe debajo, y la imagen
de EAN-8 corta la última barra: son los de siempre. --completo, --ensancha y
--ancho-modulo los cambian, para etiquetas que se van a imprimir y leer.

Con --lista hace una hoja de etiquetas en PDF, con una por cada renglón del
archivo («-» es la entrada estándar). Un renglón que no se puede dibujar se
avisa con su número, se omite y el comando termina con 1.
)";

constexpr std::string_view kExamples = R"(
  qvn barras ean13 400638133393
      el código en la terminal, con su dígito verificador 1
  qvn barras code128 AB1234 --ancho-modulo 2 --ensancha --salida etiqueta.png
      una etiqueta para imprimir
  qvn barras code39 --lista articulos.txt --salida etiquetas.pdf
      una hoja de etiquetas
)";

constexpr Option kOutputOption{"salida", 'o', "ARCHIVO", "imagen .png, .svg o .pdf que se escribe"};
constexpr Option kListOption{"lista", 'l', "ARCHIVO", "un texto en cada renglón, para una hoja en PDF"};
constexpr Option kHeightOption{"alto", 'a', "DECENAS", "alto de las barras, en decenas de pixeles; 5 si falta"};
constexpr Option kNoTextOption{"sin-texto", 0, "", "no escribe el texto debajo"};
constexpr Option kCheckOption{"verificador", 0, "", "code39: agrega el carácter verificador"};
constexpr Option kModuleWidthOption{"ancho-modulo", 0, "PIXELES", "ancho de cada módulo, de 1 a 100; 1 si falta"};
constexpr Option kWidenOption{"ensancha", 0, "", "ensancha la imagen hasta que nada se corta"};
constexpr Option kWholeOption{"completo", 0, "", "code128: codifica también las últimas cifras"};
constexpr Option kModulesOption{"modulos", 0, "", "escribe los módulos: 1 oscuro, 0 claro"};
constexpr auto kOptions = std::to_array<Option>({kOutputOption, kListOption, kHeightOption, kNoTextOption, kCheckOption,
                                                 kModuleWidthOption, kWidenOption, kWholeOption, kModulesOption});

struct SymbologyName {
  std::string_view name;
  Symbology symbology;
};
constexpr auto kSymbologies = std::to_array<SymbologyName>({{"code128", Symbology::Code128},
                                                            {"code39", Symbology::Code39},
                                                            {"ean13", Symbology::Ean13},
                                                            {"ean8", Symbology::Ean8}});

Symbology symbologyOperand(const Arguments& arguments) {
  if (arguments.operands().empty()) {
    throw UsageError("falta la simbología: code128, code39, ean13 o ean8");
  }
  const auto* found = std::ranges::find(kSymbologies, arguments.operands().front(), &SymbologyName::name);
  if (found == kSymbologies.end()) {
    throw UsageError("no existe la simbología «" + safeText(arguments.operands().front()) +
                     "»; hay code128, code39, ean13 y ean8");
  }
  return found->symbology;
}

std::int32_t numberOption(const Arguments& arguments, const Option& option, std::int32_t missing, std::int32_t least,
                          std::int32_t most) {
  const auto text = arguments.value(option.name);
  if (!text) {
    return missing;
  }
  const std::string name = "--" + std::string(option.name);
  const std::int32_t number = keyOperand(*text, "un número en " + name);
  if (number < least || number > most) {
    throw UsageError(name + " va de " + std::to_string(least) + " a " + std::to_string(most));
  }
  return number;
}

LabelWishes wishesOf(const Arguments& arguments) {
  LabelWishes wishes;
  wishes.symbol.symbology = symbologyOperand(arguments);
  wishes.symbol.hasCheckCharacter = arguments.has(kCheckOption.name);
  if (arguments.has(kWholeOption.name)) {
    wishes.symbol.trailing = barcode::TrailingDigits::All;
  }
  // Taller ones are the library's, for hosts that ask for them; nobody types them on purpose.
  wishes.look.barHeight = static_cast<std::int16_t>(numberOption(arguments, kHeightOption, 5, 0, 1000));
  wishes.look.hasCaption = !arguments.has(kNoTextOption.name);
  wishes.fit.moduleWidth = numberOption(arguments, kModuleWidthOption, 1, 1, 100);
  wishes.fit.isWidened = arguments.has(kWidenOption.name);
  return wishes;
}

std::string listText(std::string_view path) {
  if (path == "-") {
    return readStandardInput();
  }
  std::ifstream file(hostPath(path), std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (!file) {
    throw RuntimeError(error_number::kFileNotFound, "No se pudo leer el archivo «" + std::string(path) + "»");
  }
  return text;
}

ExitStatus runList(const Arguments& arguments, Context& context, const LabelWishes& wishes) {
  const auto output = arguments.value(kOutputOption.name);
  if (arguments.operands().size() != 1 || arguments.has(kModulesOption.name)) {
    throw UsageError("con --lista los textos van en el archivo y el resultado es una hoja");
  }
  if (!output || barcode::pictureFormat(*output) != barcode::PictureFormat::Pdf) {
    throw UsageError("con --lista falta --salida con un archivo que termine en .pdf");
  }
  return writeLabelSheet(wishes, listText(*arguments.value(kListOption.name)), *output, context);
}

void showPreview(const LabelWishes& wishes, Context& context) {
  const std::string modules = labelModules(wishes.symbol);
  const auto columns = context.out.terminalColumns();
  if (columns && *columns < previewColumns(modules)) {
    throw RuntimeError(error_number::kInvalidCall, "El código necesita " + std::to_string(previewColumns(modules)) +
                                                       " columnas y la terminal tiene " + std::to_string(*columns) +
                                                       "; use --salida");
  }
  const std::string caption = wishes.look.hasCaption ? safeText(wishes.symbol.caption) : "";
  context.out << barcodePreview(modules, caption, context.out.isTerminal());
}

ExitStatus runBarras(const Arguments& arguments, Context& context) {
  LabelWishes wishes = wishesOf(arguments);
  if (arguments.has(kListOption.name)) {
    return runList(arguments, context, wishes);
  }
  if (arguments.operands().size() != 2) {
    throw UsageError("después de la simbología va un solo texto; entre comillas si lleva blancos");
  }
  wishes.symbol.caption = arguments.operands().back();
  if (arguments.has(kModulesOption.name)) {
    context.out << labelModules(wishes.symbol) << "\n";
  } else if (const auto output = arguments.value(kOutputOption.name)) {
    labelPicture(wishes, context)->save(*output);
  } else {
    showPreview(wishes, context);
  }
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kBarrasCommand{
    "barras", "dibuja códigos de barras", "SIMBOLOGIA [TEXTO]", kDescription, kOptions, kExamples, runBarras};

}  // namespace qvn::cli
