#include "apps/qvn/echo_report.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

namespace qvn::cli {
namespace {

using std::chrono::microseconds;

// Of the numbers that docs/ping.md lists.
struct StatusText {
  std::uint32_t status;
  std::string_view text;
};
constexpr auto kStatusTexts = std::to_array<StatusText>({
    {11002, "red inalcanzable"},
    {11003, "equipo inalcanzable"},
    {11004, "protocolo inalcanzable"},
    {11005, "puerto inalcanzable"},
    {11009, "el paquete no cabe por el camino"},
    {11012, "ruta equivocada"},
    {11013, "dio vueltas por el camino hasta agotarse"},
    {11014, "le faltaron fragmentos"},
    {11015, "un equipo del camino no lo entiende"},
});

struct SendingError {
  int number;
  std::string_view text;
};
constexpr auto kSendingErrors = std::to_array<SendingError>({
    {EPERM,
     "el sistema no permite enviar ecos; pida que su grupo quede dentro de net.ipv4.ping_group_range,"
     " o el permiso CAP_NET_RAW, y revise el cortafuegos"},
    {EACCES, "el sistema no lo permite; a una dirección de difusión no se envía"},
    {ENETUNREACH, "no hay camino hacia esa red"},
    {EHOSTUNREACH, "no hay camino hacia ese equipo"},
    {ENETDOWN, "la red está apagada"},
});

std::string millisecondsText(microseconds time) {
  std::string thousandths = std::to_string(time.count() % 1000);
  thousandths.insert(0, 3 - thousandths.size(), '0');
  return std::to_string(time.count() / 1000) + "." + thousandths + " ms";
}

// With one decimal where it says something.
std::string percentText(std::int64_t part, std::int64_t whole) {
  const std::int64_t tenths = (part * 1000 + whole / 2) / whole;
  std::string text = std::to_string(tenths / 10);
  if (tenths % 10 != 0) text += "." + std::to_string(tenths % 10);
  return text + " %";
}

std::string counted(std::int64_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

}  // namespace

std::string echoText(const system::EchoResult& result, std::string_view wait) {
  if (result.systemError != 0) return "no se envió: " + sendingErrorText(result.systemError);
  if (!result.reply) return "sin respuesta en " + std::string(wait) + " s";
  const std::uint32_t status = result.reply->status;
  if (status == 0) return "respuesta en " + millisecondsText(result.reply->roundTrip);
  const auto* known = std::ranges::find(kStatusTexts, status, &StatusText::status);
  const std::string_view text = known == kStatusTexts.end() ? "rechazado" : known->text;
  return std::string(text) + " (" + std::to_string(status) + ")";
}

std::string sendingErrorText(int systemError) {
  const auto* known = std::ranges::find(kSendingErrors, systemError, &SendingError::number);
  return known == kSendingErrors.end() ? "error " + std::to_string(systemError) + " del sistema"
                                       : std::string(known->text);
}

void EchoStatistics::add(const system::EchoResult& result) {
  ++sent_;
  if (!result.reply || result.reply->status != 0) return;
  const microseconds time = result.reply->roundTrip;
  shortest_ = received_ == 0 ? time : std::min(shortest_, time);
  longest_ = std::max(longest_, time);
  total_ += time;
  ++received_;
}

std::string EchoStatistics::text() const {
  std::string text = counted(sent_, "enviado") + ", " + counted(received_, "recibido");
  if (sent_ > 0) text += ", " + percentText(sent_ - received_, sent_) + " perdido";
  text += "\n";
  if (received_ == 0) return text;
  return text + "mínimo " + millisecondsText(shortest_) + ", medio " + millisecondsText(total_ / received_) +
         ", máximo " + millisecondsText(longest_) + "\n";
}

}  // namespace qvn::cli
