// A database of a test's own on the private server, and the engine's own programs against it.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "qvn/data/connection.h"
#include "qvn/data/connection_string.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/mysql_server.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/server_lock.h"

namespace qvn::test {

/// Each line ended as the host's dumps end it.
inline std::string withCrLf(const std::string& text) {
  std::string lines;
  for (const char c : text) lines.append(c == '\n' ? "\r\n" : std::string(1, c));
  return lines;
}

class ShopServer : public testing::Test {
 protected:
  ShopServer() {
    data::registerBuiltInDrivers();
    lock_ = holdServerLock("tienda");
    connection_ = open("qvn_test");
    drop();
    connection_->Execute("CREATE DATABASE tienda CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci");
    connection_ = open("tienda");
  }
  ~ShopServer() override { drop(); }

  static data::ConnectionPtr open(const std::string& database) {
    std::string text = mysqlConnectionString();
    text.replace(text.rfind("DATABASE=qvn_test"), std::string::npos, "DATABASE=" + database + ";");
    auto connection = data::Connection::create();
    connection->Open(text);
    return connection;
  }

  void drop() const {
    try {
      open("qvn_test")->Execute("DROP DATABASE IF EXISTS tienda");
    } catch (const RuntimeError& error) {
      ADD_FAILURE() << error.description();
    }
  }

  void execute(const std::string& sql) const { connection_->Execute(sql); }
  [[nodiscard]] std::string scalar(const std::string& sql, int column = 0) const {
    const auto rows = connection_->Execute(sql);
    if (rows->Eof()) return "no row";
    const Variant& value = rows->Fields(column).Value();
    return value.isNull() ? "NULL" : value.toText();
  }

  /// "name rows checksum" of every table, and what its triggers and views are.
  [[nodiscard]] std::string fingerprint() const {
    std::ostringstream text;
    for (const std::string kind : {"BASE TABLE", "VIEW"}) {
      const auto names = open("tienda")->Execute(
          "SELECT GROUP_CONCAT(TABLE_NAME ORDER BY TABLE_NAME) FROM information_schema.TABLES WHERE TABLE_SCHEMA = "
          "'tienda' AND TABLE_TYPE = '" +
          kind + "'");
      std::istringstream list(names->Fields(0).Value().isNull() ? "" : names->Fields(0).Value().toText());
      for (std::string name; std::getline(list, name, ',');) {
        if (const std::size_t quote = name.find('`'); quote != std::string::npos) name.insert(quote, 1, '`');
        const auto session = open("tienda");
        text << session->Execute("SHOW CREATE TABLE `" + name + "`")->Fields(1).Value().toText() << "\n";
        if (kind == "VIEW") continue;
        text << session->Execute("CHECKSUM TABLE `" + name + "`")->Fields(1).Value().toText() << "\n";
      }
    }
    const auto triggers = open("tienda")->Execute("SHOW TRIGGERS");
    for (; !triggers->Eof(); triggers->MoveNext()) text << triggers->Fields("Statement").Value().toText() << "\n";
    return text.str();
  }

  /// Runs one of the engine's own programs as the administrator; its exit status.
  [[nodiscard]] int runClient(const std::string& program, const std::string& arguments) const {
    const data::ConnectionString parts(mysqlConnectionString());
    const std::string settings = folder_.path("client.cnf");
    std::ofstream(settings) << "[client]\nsocket=" << parts.value({"SOCKET"}).value_or("") << "\nuser=root\npassword='"
                            << parts.value({"PWD"}).value_or("") << "'\n";
    return std::system((program + " --defaults-file=" + settings + " " + arguments).c_str());
  }

  ScratchFolder folder_;
  std::string file_ = folder_.path("tienda.sql");
  FixedClock clock_{{Date::fromCivil(2026, 3, 7), Date::fromCivil(2026, 3, 8)}};
  data::ConnectionPtr lock_;
  data::ConnectionPtr connection_;
};

}  // namespace qvn::test
