// A database of a test's own on each engine that the suite runs against.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/connection.h"

namespace qvn::test {

/// An empty database, removed with the object.
class TestDatabase {
 public:
  virtual ~TestDatabase() = default;
  [[nodiscard]] virtual std::string connectionString() const = 0;

  /// A new session on it.
  [[nodiscard]] virtual data::ConnectionPtr connect() const {
    auto connection = data::Connection::create();
    connection->Open(connectionString());
    return connection;
  }

  /// What takes the session's server away, or its file, when it is called: under a result that is being read.
  [[nodiscard]] virtual std::function<void()> breakerOf(data::Connection& session) const = 0;
};

/// How an engine writes what the others write in another way, and what it makes of it.
struct SqlForms {
  std::string fromNoTable = {};                            // what follows SELECT and values that come from no table
  std::string autoNumber = {};                             // declaration of a primary key that numbers its rows
  std::string beginWriting = "BEGIN";                      // opens a transaction that will write
  bool insertsManyRows = true;                             // VALUES (...), (...); else EXECUTE BLOCK
  bool upperCasesNames = false;                            // names without quotes come back in capitals
  bool readsAhead = false;                                 // the driver reads all rows of a result at once
  bool roundsDoubles = false;                              // to 15 digits
  bool takesQuotedAlias = true;                            // AS 'REGISTROS'
  bool hasScopeIdentity = false;                           // SELECT SCOPE_IDENTITY()
  bool runsBatches = false;                                // a text of several statements is one batch
  std::map<std::string, std::string> typeNames = {};       // where it has another name for a type
  std::map<std::string, data::FieldType> fieldTypes = {};  // where a field of a type is not of the usual field type
  std::map<std::string, VariantType> valueTypes = {};      // where its values are not of the usual type
};

/// An engine of the suite, and the driver that it is reached through.
struct Engine {
  std::string name;
  std::unique_ptr<TestDatabase> (*create)();
  std::string driver;         // source of its errors
  std::string slowStatement;  // runs for many seconds without giving a row
  SqlForms forms = {};

  [[nodiscard]] std::string typeName(const std::string& type) const {
    const auto own = forms.typeNames.find(type);
    return own == forms.typeNames.end() ? type : own->second;
  }
};

inline void PrintTo(const Engine& engine, std::ostream* out) { *out << engine.name; }

/// All of them. A server engine fails in create(), with a text that says how to start its server, when the environment
/// names none.
const std::vector<Engine>& engines();

/// Those of them that the demonstration's shop can be made on.
std::vector<Engine> shopEngines();

/// The engine as a test parameter's name.
inline std::string engineName(const testing::TestParamInfo<Engine>& parameter) { return parameter.param.name; }

}  // namespace qvn::test
