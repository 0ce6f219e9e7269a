// Sessions of the driver on a database of the test's own, which the engine opens inside this process.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "qvn/base/number_text.h"
#include "qvn/data/drivers/firebird/firebird_driver.h"
#include "tests/support/error_of.h"
#include "tests/support/provider_error_of.h"

namespace qvn::test {

inline std::unique_ptr<data::Session> connectTo(const std::string& connectionString,
                                                std::chrono::seconds timeout = std::chrono::seconds(30)) {
  const data::ConnectionString parameters(connectionString);
  return data::firebirdDriver()->connect({parameters, {}, {}, {}, std::chrono::seconds(5), timeout});
}

/// Type and exact value, for comparing what no text shows: "3: 12".
inline std::string shown(const Variant& value) {
  const std::string type = std::to_string(static_cast<int>(value.type())) + ": ";
  if (value.isNull()) return type;
  if (const auto* date = value.getIf<Date>()) return type + shortestNumber(date->serial());
  return type + value.toText();
}

/// The first column of the rows that are left.
inline std::vector<std::string> remaining(data::Cursor& cursor) {
  std::vector<std::string> values;
  for (Variant value; cursor.next();) {
    cursor.read(0, value);
    values.push_back(shown(value));
  }
  return values;
}

/// First value of the statement's first row.
inline Variant scalar(data::Session& session, const std::string& sql) {
  const data::StatementResult result = session.execute(sql);
  Variant value;
  if (result.cursor == nullptr || !result.cursor->next()) {
    ADD_FAILURE() << "no row: " << sql;
    return value;
  }
  result.cursor->read(0, value);
  return value;
}

/// An empty folder, removed with the object.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "qvn_firebird.XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  [[nodiscard]] std::string operator/(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

class FirebirdTest : public testing::Test {
 protected:
  Variant scalar(const std::string& sql) { return test::scalar(*session_, sql); }

  /// Another session on the same database.
  [[nodiscard]] std::unique_ptr<data::Session> another(std::chrono::seconds timeout = std::chrono::seconds(30)) const {
    return connectTo(connectionString_, timeout);
  }

  Folder folder_;
  std::string connectionString_ =
      "Provider=IbOleDb;User ID=SYSDBA;Mode=ReadWriteCreate;Data Source=" + (folder_ / "tienda.fdb");
  std::unique_ptr<data::Session> session_ = another();
};

}  // namespace qvn::test
