// Faithful backups and their restores by "qvn" beside those of the engine's own programs, with the memory of each.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/mysqladmin/shop_of_a_million.h"
#include "bench/support/child_program.h"
#include "bench/support/mysql_peer.h"
#include "bench/support/peer_report.h"
#include "qvn/data/connection_string.h"

namespace qvn::bench {
namespace {

std::string newFolder() {
  std::string name = "/tmp/qvn_bench_XXXXXX";
  if (mkdtemp(name.data()) == nullptr) std::abort();
  return name;
}

// A word in quotes of the engine's option files.
std::string optionText(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted.append(c == '\'' || c == '\\' ? "\\" : "").push_back(c);
  return quoted + "'";
}

struct Programs {
  ChildProgram qvnBackup;
  ChildProgram peerBackup;
  ChildProgram qvnRestore;
  ChildProgram peerRestore;
};

// All of them drop the database and make it again; all read it as it is at one moment.
Programs programsIn(const std::string& folder) {
  const data::ConnectionString parts(mysqlConnectionString());
  const std::string options = folder + "/client.cnf";
  std::ofstream(options) << "[client]\nsocket=" << parts.value({"SOCKET"}).value_or("")
                         << "\nuser=" << parts.value({"UID"}).value_or("")
                         << "\npassword=" << optionText(parts.value({"PWD"}).value_or("")) << "\n";
  std::string connection = mysqlConnectionString();
  connection.replace(connection.rfind("DATABASE="), std::string::npos, "DATABASE=").append(kShopDatabase);
  setenv("QVN_CONEXION", connection.c_str(), 1);
  const std::string own = folder + "/qvn.sql";
  const std::string peers = folder + "/peer.sql";
  return {
      .qvnBackup = {{QVN_PROGRAM, "respalda", "--fiel", own}},
      .peerBackup = {{"mariadb-dump", "--defaults-file=" + options, "--single-transaction", "--quick",
                      "--add-drop-database", "--databases", std::string(kShopDatabase)},
                     "/dev/null",
                     peers},
      .qvnRestore = {{QVN_PROGRAM, "restaura", "--fiel", own}},
      .peerRestore = {{"mariadb", "--defaults-file=" + options}, peers},
  };
}

void add(const char* name, const ChildProgram& program) {
  const auto turn = [&program](benchmark::State& state) {
    double peak = 0;
    for (auto _ : state) peak = peakMegabytes(program);
    state.counters["peak_MB"] = peak;
  };
  benchmark::RegisterBenchmark(name, turn)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
}

int runAll(int argc, char** argv) {
  const std::string folder = newFolder();
  const Programs programs = programsIn(folder);
  makeShopOfAMillion();
  // The restores need both files, in whatever turn they come.
  peakMegabytes(programs.qvnBackup);
  peakMegabytes(programs.peerBackup);
  add("backup/qvn", programs.qvnBackup);
  add("backup/mariadb-dump", programs.peerBackup);
  add("restore/qvn", programs.qvnRestore);
  add("restore/mariadb", programs.peerRestore);
  const int status = runBesidePeers(argc, argv);
  dropShopOfAMillion();
  std::filesystem::remove_all(folder);
  return status;
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) { return qvn::bench::runAll(argc, argv); }
