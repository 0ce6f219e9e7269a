#include "qvn/core/access_database.h"

#include <string>

#include "qvn/base/runtime_error.h"

namespace qvn::core {
namespace {

constexpr std::chrono::seconds kCommandTimeout{30};

// A step that fails is skipped and the next one runs: callers look at the state of what they get.
template <typename Step>
void ignoringErrors(Step step) noexcept {
  try {
    step();
  } catch (const RuntimeError&) {
    return;
  }
}

}  // namespace

data::ConnectionPtr AbreConnection(std::string_view cBase) {
  auto connection = data::Connection::create();
  connection->setCursorLocation(data::CursorLocation::Client);
  ignoringErrors(
      [&] { connection->setConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + std::string(cBase)); });
  // The password of the product's own Access files.
  connection->Properties().set("Jet OLEDB:Database Password", "KXTRBAMV");
  ignoringErrors([&] { connection->setCommandTimeout(kCommandTimeout); });
  ignoringErrors([&] { connection->Open(); });
  return connection;
}

}  // namespace qvn::core
