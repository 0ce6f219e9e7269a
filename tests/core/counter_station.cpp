// One station that draws numbers, for tests of several at a time:  counter_station COUNTER COUNT plain|safe
//
// The connection string comes in the variable QVN_STATION. Prints the numbers that it drew, a line each; a draw that
// the engine refused because of another station is printed as "-" and repeated.
#include <cstdlib>
#include <iostream>
#include <string>

#include "qvn/core/consecutive.h"
#include "qvn/data/drivers/built_in.h"

namespace {

std::int32_t drawOnce(const std::string& counter, bool isSafe, const qvn::data::ConnectionPtr& connection) {
  if (isSafe) return qvn::core::TraeSiguienteSeguro(counter, connection);
  qvn::host::QueryPtr query;
  return qvn::core::TraeSiguiente(counter, connection, {}, query);
}

void drawAll(const std::string& counter, int count, bool isSafe) {
  const auto connection = qvn::data::Connection::create();
  connection->Open(std::getenv("QVN_STATION"));
  connection->setCommandTimeout(std::chrono::minutes{2});
  for (int drawn = 0; drawn < count;) {
    try {
      std::cout << drawOnce(counter, isSafe, connection) << '\n';
      ++drawn;
    } catch (const qvn::data::ProviderError&) {
      if (isSafe) throw;
      std::cout << "-\n";
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4 || std::getenv("QVN_STATION") == nullptr) return 2;
  qvn::data::registerBuiltInDrivers();
  try {
    drawAll(argv[1], std::stoi(argv[2]), std::string(argv[3]) == "safe");
  } catch (const qvn::RuntimeError& error) {
    std::cerr << error.description() << '\n';
    return 1;
  }
  return 0;
}
