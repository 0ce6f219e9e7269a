// qvn movil: files and programs of a handheld device.
#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "apps/qvn/commands.h"
#include "apps/qvn/device_session.h"
#include "apps/qvn/interruption.h"
#include "apps/qvn/terminal_text.h"
#include "apps/qvn/transfer_bar.h"
#include "qvn/base/path.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Trabaja con los archivos de un dispositivo de mano. OPERACIÓN es una de éstas:

  trae ARCHIVO LOCAL    copia un archivo del dispositivo a esta máquina
  lleva LOCAL ARCHIVO   copia un archivo de esta máquina al dispositivo, que no
                        debe tener ya uno de ese nombre
  borra ARCHIVO         borra un archivo del dispositivo
  existe ARCHIVO        dice si está en el dispositivo; el último nombre puede
                        llevar * y ?
  ejecuta PROGRAMA [PARÁMETROS]
                        arranca un programa del dispositivo y no lo espera
  version               escribe la versión de su sistema

ARCHIVO y PROGRAMA son rutas del dispositivo, como '\My Documents\ventas.txt';
entre apóstrofos el intérprete de comandos no toca las diagonales.

Si LOCAL ya existía y era más largo, «trae» sólo cambia su principio: el resto
se conserva. Lo que una copia fallida alcanzó a escribir se queda en su destino.
Ctrl-C termina la copia.
)";

constexpr std::string_view kExamples = R"(
  qvn movil trae '\My Documents\ventas.txt' ventas.txt --biblioteca librapi.so
  qvn movil lleva precios.txt '\My Documents\precios.txt' --carpeta /media/pda
  qvn movil existe '\My Documents\*.txt' --carpeta /media/pda
)";

constexpr auto kOptions = std::to_array<Option>({kDeviceFolderOption, kDeviceLibraryOption, kDeviceWaitOption});

using Operands = std::span<const std::string_view>;

std::string quoted(std::string_view text) { return "«" + safeText(text) + "»"; }

ExitStatus fail(Context& context, const std::string& what) {
  context.messages << "qvn: " << what << "\n";
  return ExitStatus::Failed;
}

ExitStatus answer(Context& context, bool isDone, const std::string& done, const std::string& failed) {
  if (!isDone) return fail(context, failed);
  context.out << done << "\n";
  return ExitStatus::Done;
}

// A copy that is shown, and that ends by the person's wish or when the device stays silent.
class WatchedCopy {
 public:
  WatchedCopy(std::string_view name, std::int64_t total, const DeviceSession& session, Context& context)
      : name_(name), total_(total), wait_(session.wait()), bar_(context.messages, true) {}

  devices::CopyObserver observer() {
    return [this](const devices::CopyProgress& at) { return isToGoOn(at); };
  }
  [[nodiscard]] std::int64_t bytes() const { return bytes_; }
  /// Removes the bar; says why the copy ended before its end.
  std::string end(const std::string& otherwise) {
    bar_.clear();
    if (Interruption::isRequested()) return "se interrumpió la copia";
    return isSilent_ ? "el dispositivo dejó de contestar" : otherwise;
  }

 private:
  using Clock = std::chrono::steady_clock;

  bool isToGoOn(const devices::CopyProgress& at) {
    const Clock::time_point now = Clock::now();
    if (at.failedReads == 0) heard_ = now;
    isSilent_ = now - heard_ > wait_;
    bytes_ = at.bytes;
    bar_.show({.table = name_, .bytes = at.bytes, .done = at.bytes, .total = total_});
    return !isSilent_ && !Interruption::isRequested();
  }

  std::string name_;
  std::int64_t total_;
  std::chrono::milliseconds wait_;
  Interruption interruption_;
  TransferBar bar_;
  Clock::time_point heard_ = Clock::now();
  bool isSilent_ = false;
  std::int64_t bytes_ = 0;
};

// The last name of a path, which is what there is room for.
std::string_view lastName(std::string_view path) { return path.substr(path.find_last_of("\\/") + 1); }

std::string copied(const WatchedCopy& copy, std::string_view to) {
  return std::to_string(copy.bytes()) + " bytes en " + quoted(to);
}

ExitStatus fetch(Operands words, const DeviceSession& session, Context& context) {
  const auto size = session.device().sizeOnPocket(words[0]);
  WatchedCopy copy(lastName(words[0]), static_cast<std::int64_t>(size.value_or(0)), session, context);
  const bool isDone = session.device().CopyFileFromPocket(words[0], words[1], copy.observer());
  const std::string reason = copy.end("no se pudo abrir " + quoted(words[0]) + " en el dispositivo");
  return answer(context, isDone, copied(copy, words[1]), reason);
}

ExitStatus send(Operands words, const DeviceSession& session, Context& context) {
  std::error_code ignored;  // the copy itself says what is wrong with the file
  const auto size = std::filesystem::file_size(hostPath(words[0]), ignored);
  const bool isThere = session.device().ExistFileOnPocket(words[1]);
  const std::string refusal =
      isThere ? quoted(words[1]) + " ya existe en el dispositivo" : "el dispositivo no aceptó todo " + quoted(words[1]);
  WatchedCopy copy(lastName(words[0]), ignored ? 0 : static_cast<std::int64_t>(size), session, context);
  const bool isDone = session.device().CopyFileToPocket(words[0], words[1], copy.observer());
  return answer(context, isDone, copied(copy, words[1]), copy.end(refusal));
}

ExitStatus erase(Operands words, const DeviceSession& session, Context& context) {
  return answer(context, session.device().DeleteFileFromPocket(words[0]), "se borró " + quoted(words[0]),
                "no se pudo borrar " + quoted(words[0]) + " en el dispositivo");
}

ExitStatus find(Operands words, const DeviceSession& session, Context& context) {
  return answer(context, session.device().ExistFileOnPocket(words[0]), "existe " + quoted(words[0]),
                "no existe " + quoted(words[0]) + " en el dispositivo");
}

ExitStatus start(Operands words, const DeviceSession& session, Context& context) {
  const std::string_view parameters = words.size() > 1 ? words[1] : "";
  return answer(context, session.device().ceCommand(words[0], parameters), "se arrancó " + quoted(words[0]),
                "no se pudo arrancar " + quoted(words[0]) + " en el dispositivo");
}

ExitStatus tellVersion(Operands, const DeviceSession& session, Context& context) {
  const std::string version = session.device().Version();
  return answer(context, !version.empty(), safeText(version), "el dispositivo no dice su versión");
}

struct Operation {
  std::string_view name;
  std::size_t least;  // words behind the name
  std::size_t most;
  std::string_view expected;
  ExitStatus (*run)(Operands words, const DeviceSession& session, Context& context);
};
constexpr auto kOperations = std::to_array<Operation>({
    {"trae", 2, 2, "un archivo del dispositivo y uno de esta máquina", fetch},
    {"lleva", 2, 2, "un archivo de esta máquina y uno del dispositivo", send},
    {"borra", 1, 1, "un archivo del dispositivo", erase},
    {"existe", 1, 1, "un archivo del dispositivo", find},
    {"ejecuta", 1, 2, "un programa del dispositivo y, entre comillas, sus parámetros", start},
    {"version", 0, 0, "nada más", tellVersion},
});

const Operation& operationOf(Operands operands) {
  if (operands.empty()) throw UsageError("falta la operación: trae, lleva, borra, existe, ejecuta o version");
  const auto* found = std::ranges::find(kOperations, operands[0], &Operation::name);
  if (found == kOperations.end()) throw UsageError("no existe la operación " + quoted(operands[0]));
  const std::size_t words = operands.size() - 1;
  if (words < found->least || words > found->most) {
    throw UsageError("«" + std::string(found->name) + "» espera " + std::string(found->expected));
  }
  return *found;
}

ExitStatus runMovil(const Arguments& arguments, Context& context) {
  const Operands operands = arguments.operands();
  const Operation& operation = operationOf(operands);
  const DeviceSession session(arguments);
  return operation.run(operands.subspan(1), session, context);
}

}  // namespace

constinit const Command kMovilCommand{"movil",        "trae, lleva y borra archivos de un dispositivo de mano",
                                      "OPERACIÓN...", kDescription,
                                      kOptions,       kExamples,
                                      runMovil};

}  // namespace qvn::cli
