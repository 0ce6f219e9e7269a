// qvn bitacora: reads the error log of a day.
#include <array>
#include <fstream>

#include "apps/qvn/commands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/base/clock.h"
#include "qvn/base/date_text.h"
#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/core/error_log.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Muestra los errores que las estaciones registraron en un día: la hora, el
módulo con su función, y la descripción. Lee el archivo QuorvinErrorDDMMAAAA.Log
de la carpeta de la bitácora.
)";

constexpr std::string_view kExamples = R"(
  qvn bitacora --carpeta /tienda/errores
      los errores de hoy
  qvn bitacora --carpeta /tienda/errores --fecha 2012-03-07 --modulo frmVentas
      los de ese día en la pantalla de ventas
)";

constexpr Option kFolderOption{"carpeta", 0, "CARPETA", "dónde está la bitácora (la carpeta actual)"};
constexpr Option kDayOption{"fecha", 'f', "FECHA", "el día, como 2012-03-07 (hoy)"};
constexpr Option kModuleOption{"modulo", 'm', "MODULO", "sólo los errores de ese módulo"};
constexpr auto kOptions = std::to_array<Option>({kFolderOption, kDayOption, kModuleOption});

Date chosenDay(const Arguments& arguments) {
  const auto text = arguments.value(kDayOption.name);
  if (!text) return systemClock()->now();
  const auto day = parseDate(*text);
  if (!day) throw UsageError("«" + safeText(*text) + "» no se lee como una fecha");
  return *day;
}

ExitStatus runBitacora(const Arguments& arguments, Context& context) {
  if (!arguments.operands().empty()) throw UsageError("no lleva argumentos; vea sus opciones");
  const std::string path = core::errorLogPath(arguments.value(kFolderOption.name).value_or("."), chosenDay(arguments));
  std::ifstream log(hostPath(path), std::ios::binary);
  if (!log) {
    context.messages << "No hay errores registrados ese día: no existe " << safeText(hostPath(path).string()) << "\n";
    return ExitStatus::Done;
  }
  const auto module = arguments.value(kModuleOption.name);
  core::readErrorLog(log, [&](const core::ErrorRecord& record) {
    if (module && !equalIgnoringCase(record.module, *module)) return;
    context.out << safeText(record.time) << "  " << safeText(record.module) << "." << safeText(record.procedure) << "  "
                << safeText(record.description) << "\n";
  });
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kBitacoraCommand{
    "bitacora", "muestra la bitácora de errores de un día", "", kDescription, kOptions, kExamples, runBitacora};

}  // namespace qvn::cli
