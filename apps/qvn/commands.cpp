#include "apps/qvn/commands.h"

#include <algorithm>
#include <array>

namespace qvn::cli {
namespace {

constexpr auto kCommands = std::to_array<const Command*>({
    &kDemoCommand,     &kSaldoCommand,      &kSaldoProveedorCommand, &kPorAplicarCommand, &kRecalculaCommand,
    &kSurtirCommand,   &kRecibirCommand,    &kLotesCommand,          &kPreciosCommand,    &kConsecutivoCommand,
    &kRespaldaCommand, &kRestauraCommand,   &kReparaCommand,         &kBarrasCommand,     &kSqlCommand,
    &kExportaCommand,  &kInformeCommand,    &kFilaCommand,           &kConexionCommand,   &kFormatoCommand,
    &kLetraCommand,    &kCalendarioCommand, &kCifraCommand,          &kDescifraCommand,   &kEjecutaCommand,
    &kPingCommand,     &kMovilCommand,      &kMensajeCommand,        &kPreguntaCommand,   &kEntradaCommand,
    &kBitacoraCommand, &kPuenteCommand,     &kMetodosCommand,
});

}  // namespace

std::span<const Command* const> allCommands() { return kCommands; }

const Command* findCommand(std::string_view name) {
  const auto* found = std::ranges::find(kCommands, name, &Command::name);
  return found == kCommands.end() ? nullptr : *found;
}

}  // namespace qvn::cli
