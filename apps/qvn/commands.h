// The commands of the program.
#pragma once

#include <span>
#include <string_view>

#include "apps/qvn/command.h"

namespace qvn::cli {

extern const Command kDemoCommand;
extern const Command kSaldoCommand;
extern const Command kSaldoProveedorCommand;
extern const Command kPorAplicarCommand;
extern const Command kRecalculaCommand;
extern const Command kSurtirCommand;
extern const Command kRecibirCommand;
extern const Command kLotesCommand;
extern const Command kPreciosCommand;
extern const Command kConsecutivoCommand;
extern const Command kRespaldaCommand;
extern const Command kRestauraCommand;
extern const Command kReparaCommand;
extern const Command kSqlCommand;
extern const Command kExportaCommand;
extern const Command kInformeCommand;
extern const Command kFilaCommand;
extern const Command kConexionCommand;
extern const Command kFormatoCommand;
extern const Command kLetraCommand;
extern const Command kCalendarioCommand;
extern const Command kBarrasCommand;
extern const Command kCifraCommand;
extern const Command kDescifraCommand;
extern const Command kEjecutaCommand;
extern const Command kPingCommand;
extern const Command kMensajeCommand;
extern const Command kPreguntaCommand;
extern const Command kEntradaCommand;
extern const Command kBitacoraCommand;
extern const Command kPuenteCommand;
extern const Command kMetodosCommand;
extern const Command kMovilCommand;

/// All of them, in the order in which help lists them.
std::span<const Command* const> allCommands();

/// Null when there is none of that name.
const Command* findCommand(std::string_view name);

}  // namespace qvn::cli
