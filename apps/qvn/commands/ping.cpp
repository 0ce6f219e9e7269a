// qvn ping: asks whether a host answers.
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "apps/qvn/commands.h"
#include "apps/qvn/echo_report.h"
#include "apps/qvn/interruption.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/base/utf8.h"
#include "qvn/system/ping.h"

namespace qvn::cli {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::string_view kDescription = R"(
Pregunta a HOST, un nombre o una dirección con puntos, si está ahí: le envía
ecos ICMP por IPv4 (Ping.DoPing), escribe un renglón por cada uno y al final
cuántos se perdieron y cuánto tardaron. Con Ctrl-C termina en ese momento y
escribe las cuentas; el eco que quedó en el aire no se cuenta.

Termina con 0 si hubo al menos una respuesta. El sistema debe permitir los ecos:
con un grupo del usuario dentro de net.ipv4.ping_group_range o con el permiso
CAP_NET_RAW.
)";

constexpr std::string_view kExamples = R"(
  qvn ping caja2
      cuatro ecos, uno por segundo
  qvn ping -n 1 -W 0.5 192.168.1.20 > /dev/null && echo contesta
      para un guión: un eco y medio segundo de paciencia
  qvn ping -n 0 servidor
      hasta que se oprima Ctrl-C
)";

constexpr std::string_view kUsualCount = "4";
constexpr std::string_view kUsualInterval = "1";
constexpr std::string_view kUsualWait = "10";
constexpr double kMostSeconds = 3600;

constexpr Option kCountOption{"cuenta", 'n', "ECOS", "cuántos ecos; 4 si falta, 0 hasta Ctrl-C"};
constexpr Option kIntervalOption{"intervalo", 'i', "SEG", "segundos de un eco al siguiente; 1 si falta"};
constexpr Option kWaitOption{"espera", 'W', "SEG", "segundos que se espera cada respuesta; 10 si falta"};
constexpr auto kOptions = std::to_array<Option>({kCountOption, kIntervalOption, kWaitOption});

struct Wishes {
  std::int32_t count;
  milliseconds interval;
  milliseconds wait;
  std::string_view waitText;
};

milliseconds secondsOf(std::string_view text, std::string_view what) {
  const double seconds = decimalOperand(text, what);
  if (seconds < 0 || seconds > kMostSeconds) throw UsageError(std::string(what) + " va de 0 a 3600 segundos");
  return std::chrono::round<milliseconds>(std::chrono::duration<double>(seconds));
}

Wishes wishesOf(const Arguments& arguments) {
  const std::string_view wait = arguments.value(kWaitOption.name).value_or(kUsualWait);
  const Wishes wishes{
      .count = keyOperand(arguments.value(kCountOption.name).value_or(kUsualCount), "una cuenta"),
      .interval = secondsOf(arguments.value(kIntervalOption.name).value_or(kUsualInterval), "el intervalo"),
      .wait = secondsOf(wait, "la espera"),
      .waitText = wait,
  };
  if (wishes.count < 0) throw UsageError("la cuenta no puede ser negativa");
  if (wishes.wait == milliseconds(0)) throw UsageError("la espera es de una milésima de segundo o más");
  return wishes;
}

// The system's network, with a patience of the person's own that ends at Ctrl-C. Remembers how the last echo went.
class WatchedEcho final : public system::EchoPort {
 public:
  explicit WatchedEcho(milliseconds wait) : wait_(wait) {}

  system::EchoResult echo(const system::EchoRequest& request) override {
    system::EchoRequest watched = request;
    watched.timeout = wait_;
    watched.isAbandoned = Interruption::isRequested;
    last_ = network_->echo(watched);
    return last_;
  }
  [[nodiscard]] const system::EchoResult& last() const { return last_; }

 private:
  std::shared_ptr<system::EchoPort> network_ = system::systemEcho();
  milliseconds wait_;
  system::EchoResult last_;
};

void pauseUntil(Clock::time_point moment) {
  constexpr milliseconds kStep{50};
  while (!Interruption::isRequested() && Clock::now() < moment) {
    std::this_thread::sleep_until(std::min(moment, Clock::now() + kStep));
  }
}

// Writes a line for each echo as it ends.
EchoStatistics askAgainAndAgain(system::Ping& ping, const WatchedEcho& echo, const Wishes& wishes, Output& out) {
  EchoStatistics statistics;
  const std::string address = ping.lastIP();
  for (std::int64_t number = 1; wishes.count == 0 || number <= wishes.count; ++number) {
    const auto start = Clock::now();
    ping.DoPing(address);
    const system::EchoResult& result = echo.last();
    if (result.systemError == EPERM) {
      throw RuntimeError(error_number::kPermissionDenied, sendingErrorText(result.systemError));
    }
    if (!result.reply && Interruption::isRequested()) break;
    statistics.add(result);
    out << std::to_string(number) << ": " << echoText(result, wishes.waitText) << "\n";
    out.flush();
    if (number != wishes.count) pauseUntil(start + wishes.interval);
    if (Interruption::isRequested()) break;
  }
  return statistics;
}

ExitStatus runPing(const Arguments& arguments, Context& context) {
  if (arguments.operands().size() != 1) throw UsageError("se espera un solo host");
  const std::string host(arguments.operands().front());
  if (utf8::length(host) > system::Ping::kHostCharacters)
    throw UsageError("el nombre del host tiene más de 64 caracteres");
  const Wishes wishes = wishesOf(arguments);
  const auto echo = std::make_shared<WatchedEcho>(wishes.wait);
  system::Ping ping(echo);
  std::string padded = host;
  const std::string address = ping.pingGetHostByName(padded);
  if (address == system::Ping::kNoAddress) {
    context.messages << "qvn: no se encontró la dirección de «" << safeText(host) << "»\n";
    return ExitStatus::Failed;
  }
  context.out << "ecos a " << safeText(host) << " (" << address << ")\n";
  context.out.flush();
  const Interruption interruption;
  const EchoStatistics statistics = askAgainAndAgain(ping, *echo, wishes, context.out);
  context.out << statistics.text();
  return statistics.hasReplies() ? ExitStatus::Done : ExitStatus::Failed;
}

}  // namespace

constinit const Command kPingCommand{
    "ping", "pregunta a un equipo de la red si contesta", "HOST", kDescription, kOptions, kExamples, runPing};

}  // namespace qvn::cli
