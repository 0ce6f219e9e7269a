#include "qvn/data/drivers/mysql/server_list.h"

#include <array>
#include <charconv>
#include <span>
#include <utility>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {
namespace {

constexpr std::int64_t kLongestConnectSeconds = 86400;

struct Word {
  std::string_view text;
  bool value;
};
constexpr auto kYesOrNo =
    std::to_array<Word>({{"Yes", true}, {"True", true}, {"1", true}, {"No", false}, {"False", false}, {"0", false}});
constexpr auto kOrders = std::to_array<Word>({{"Random", true}, {"InOrder", false}});

[[noreturn]] void refuse(const std::string& description) {
  throw ProviderError(provider_number::kBadConnectionString, description);
}

bool parseWord(std::string_view option, const std::string& text, std::span<const Word> words) {
  for (const Word& word : words) {
    if (equalIgnoringCase(word.text, text)) return word.value;
  }
  std::string allowed;
  for (const Word& word : words) allowed.append(allowed.empty() ? "" : ", ").append(word.text);
  refuse(std::string(option) + " de la cadena de conexión debe ser uno de: " + allowed);
}

std::chrono::seconds parseTimeout(const std::string& text) {
  std::int64_t seconds = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, seconds);
  if (error != std::errc{} || stop != end || seconds < 1 || seconds > kLongestConnectSeconds) {
    refuse("El tiempo de espera (Connect Timeout) de la cadena de conexión debe ser un número de 1 a 86400 segundos");
  }
  return std::chrono::seconds(seconds);
}

// "host", "host:port", "[address]" or "[address]:port"; an address of the sixth version without brackets has no port.
void setPlace(ServerAddress& address, std::string_view place) {
  std::size_t afterHost = place.find(':');
  if (place.starts_with('[')) {
    const std::size_t closing = place.find(']');
    if (closing == std::string_view::npos) refuse("Falta «]» en SERVER de la cadena de conexión");
    address.host = place.substr(1, closing - 1);
    afterHost = closing + 1;
    if (afterHost < place.size() && place[afterHost] != ':') refuse("Sobra texto tras «]» en SERVER de la conexión");
  } else if (afterHost != std::string_view::npos && place.find(':', afterHost + 1) != std::string_view::npos) {
    address.host = place;
    return;
  } else {
    address.host = place.substr(0, afterHost);
  }
  if (address.host.empty()) refuse("SERVER de la cadena de conexión tiene un nombre de servidor vacío");
  if (afterHost >= place.size()) return;
  const std::string port(place.substr(afterHost + 1));
  if (port.empty()) refuse("SERVER de la cadena de conexión tiene «:» sin puerto");
  address.port = parsePort(port);
}

}  // namespace

ServerList serverList(const ConnectRequest& request) {
  const auto value = [&](std::initializer_list<std::string_view> names) {
    return request.parameters.value(names).value_or("");
  };
  ServerAddress common;
  common.socket = value({"SOCKET", "UNIX_SOCKET"});
  common.port = parsePort(value({"PORT"}));
  common.database = value({"DATABASE", "INITIAL CATALOG"});
  common.user = request.user.empty() ? value({"UID", "USER", "USER ID", "USERNAME"}) : request.user;
  common.password = request.password.empty() ? value({"PWD", "PASSWORD"}) : request.password;

  ServerList list;
  const std::string order = value({"SERVER ORDER", "SERVER_ORDER"});
  list.isRandom = !order.empty() && parseWord("Server Order", order, kOrders);
  const std::string timeout = value({"CONNECT TIMEOUT", "CONNECT_TIMEOUT", "CONNECTION TIMEOUT"});
  list.connectTimeout = timeout.empty() ? request.connectTimeout : parseTimeout(timeout);
  const std::string reconnect = value({"RECONNECT"});
  list.reconnects = !reconnect.empty() && parseWord("Reconnect", reconnect, kYesOrNo);

  const std::string text = value({"SERVER", "HOST", "DATA SOURCE"});
  // A socket leads to one server, whatever SERVER says.
  std::string_view rest =
      utf8::trimBlanks(text).empty() || !common.socket.empty() ? std::string_view("localhost") : text;
  while (true) {
    const std::size_t comma = rest.find(',');
    setPlace(list.servers.emplace_back(common), utf8::trimBlanks(rest.substr(0, comma)));
    if (comma == std::string_view::npos) return list;
    rest.remove_prefix(comma + 1);
  }
}

std::vector<ServerAddress> tryOrder(const ServerList& list, RandomSource& random) {
  std::vector<ServerAddress> servers = list.servers;
  if (!list.isRandom) return servers;
  for (std::size_t left = servers.size(); left > 1; --left) {
    std::swap(servers[left - 1], servers[static_cast<std::size_t>(random.next() * static_cast<double>(left))]);
  }
  return servers;
}

}  // namespace qvn::data::mysql
