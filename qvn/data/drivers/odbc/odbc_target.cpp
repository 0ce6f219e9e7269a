#include "qvn/data/drivers/odbc/odbc_target.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/base/utf8.h"
#include "qvn/data/drivers/odbc/access_file.h"
#include "qvn/data/drivers/odbc/installed_drivers.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::odbc {
namespace {

bool beginsWith(std::string_view text, std::string_view beginning) {
  return equalIgnoringCase(text.substr(0, beginning.size()), beginning);
}

bool contains(std::string_view text, std::string_view word) {
  return upperCase(text).find(upperCase(word)) != std::string::npos;
}

// A value, in braces when it needs them, since not every driver takes them off; the part ends with ";" because some
// drivers want it.
void append(std::string& text, std::string_view name, std::string_view value) {
  const bool isPlain = value.find_first_of(";{}='\"") == std::string_view::npos && utf8::trimBlanks(value) == value;
  if (isPlain) {
    text.append(name).append("=").append(value).append(";");
    return;
  }
  text.append(name).append("={");
  for (const char c : value) text.append(c == '}' ? 2 : 1, c);
  text.append("};");
}

void appendCredentials(std::string& text, const ConnectRequest& request) {
  const auto given = [&](const std::string& own, std::initializer_list<std::string_view> names) {
    return own.empty() ? request.parameters.value(names) : std::optional(own);
  };
  if (const auto user = given(request.user, {"UID", "User ID", "User"})) append(text, "UID", *user);
  if (const auto password = given(request.password, {"PWD", "Password"})) append(text, "PWD", *password);
}

// "tcp:server\instance,1433" without its protocol.
std::string_view serverName(std::string_view server) { return beginsWith(server, "tcp:") ? server.substr(4) : server; }

// "." and "(local)" are this machine, also in front of an instance's name.
std::string withoutLocalName(std::string_view server) {
  const std::size_t end = std::min(server.find('\\'), server.size());
  const std::string_view host = server.substr(0, end);
  const bool isLocal = host == "." || equalIgnoringCase(host, "(local)");
  return std::string(isLocal ? "localhost" : host).append(server.substr(end));
}

Target sqlServerTarget(const ConnectRequest& request) {
  const std::string given = request.parameters.value({"Server", "Data Source", "Address"}).value_or("");
  std::string_view server = serverName(given);
  if (server.empty()) {
    throw ProviderError(provider_number::kBadConnectionString,
                        "La cadena de conexión no dice a qué servidor conectarse; agregue «Server=nombre»");
  }
  Target target{{}, std::string(server), "tdsodbc"};
  std::string& text = target.connectionString;
  append(text, "DRIVER", registeredDriver("FreeTDS", "libtdsodbc.so"));
  if (const std::size_t comma = server.find(','); comma != std::string_view::npos) {
    append(text, "PORT", server.substr(comma + 1));
    server = server.substr(0, comma);
  } else if (server.find('\\') == std::string_view::npos) {
    append(text, "PORT", "1433");
  }
  append(text, "SERVER", withoutLocalName(server));
  if (const auto database = request.parameters.value({"Database", "Initial Catalog"})) {
    append(text, "DATABASE", *database);
  }
  append(text, "TDS_Version", "7.3");
  append(text, "ClientCharset", "UTF-8");
  appendCredentials(text, request);
  return target;
}

std::string accessPassword(const ConnectRequest& request) {
  static constexpr std::string_view kName = "Jet OLEDB:Database Password";
  const Variant& property = request.properties.get(kName);
  if (!property.isEmpty() && !property.isNull()) return property.toText();
  return request.parameters.value({kName}).value_or("");
}

Target accessTarget(const ConnectRequest& request) {
  const std::string path = request.parameters.value({"Data Source", "DBQ"}).value_or("");
  if (path.empty()) {
    throw ProviderError(provider_number::kBadConnectionString,
                        "La cadena de conexión no dice qué archivo abrir; agregue «Data Source=ruta»");
  }
  const std::filesystem::path file = hostPath(path);
  requireAccessFile(file, accessPassword(request));
  Target target{{}, file.string(), "odbc-mdbtools"};
  append(target.connectionString, "DRIVER", registeredDriver("MDBTools", "libmdbodbc.so"));
  append(target.connectionString, "DBQ", file.string());
  return target;
}

struct DriverHabit {
  std::string_view word;  // in the name of the ODBC driver
  std::string_view debianPackage;
  std::string_view settings;  // added unless the host set the first of them itself
};

// MariaDB: rows that match count as affected (2), cursors only go forward (2097152) and are streamed (1048576, which
// versions before 3.1.17 ignore). SQLite: rows are streamed, and a wait for another session is short, because the
// driver cannot be stopped in it; the session repeats the statement.
constexpr auto kHabits = std::to_array<DriverHabit>({
    {"maria", "odbc-mariadb", "OPTIONS=3145730;CHARSET=utf8mb4;"},
    {"maodbc", "odbc-mariadb", "OPTIONS=3145730;CHARSET=utf8mb4;"},
    {"sqlite", "libsqliteodbc", "StepAPI=1;Timeout=100;"},
    {"freetds", "tdsodbc", "TDS_Version=7.3;ClientCharset=UTF-8;"},
    {"tdsodbc", "tdsodbc", "TDS_Version=7.3;ClientCharset=UTF-8;"},
    {"mdb", "odbc-mdbtools", ""},
});

// Under the provider that stands for the driver manager, "Data Source" is the name of a source that it knows.
bool namesSource(const ConnectRequest& request, std::string_view part) {
  return equalIgnoringCase(part, "Data Source") && !request.parameters.value({"DSN", "Driver"});
}

Target otherTarget(const ConnectRequest& request) {
  Target target;
  std::string& text = target.connectionString;
  const std::vector<ConnectionString::Part>& parts = request.parameters.parts();
  const auto isCredential = [](std::string_view name) {
    return std::ranges::any_of(std::to_array<std::string_view>({"UID", "User ID", "User", "PWD", "Password"}),
                               [&](std::string_view known) { return equalIgnoringCase(name, known); });
  };
  for (auto part = parts.begin(); part != parts.end(); ++part) {
    // The last of two equal names counts here, the first one for the driver manager.
    const bool isRepeated = std::any_of(part + 1, parts.end(),
                                        [&](const auto& later) { return equalIgnoringCase(later.name, part->name); });
    if (isRepeated || isCredential(part->name) || equalIgnoringCase(part->name, "Provider")) continue;
    const bool isFile = equalIgnoringCase(part->name, "DBQ");
    append(text, namesSource(request, part->name) ? "DSN" : part->name,
           isFile ? hostPath(part->value).string() : part->value);
  }
  target.shownName = request.parameters.value({"DSN", "Driver", "Data Source"}).value_or("");
  if (target.shownName.empty()) {
    throw ProviderError(
        provider_number::kBadConnectionString,
        "La cadena de conexión no dice qué controlador ODBC usar; agregue «Driver=nombre» o «DSN=nombre»");
  }
  const std::string driver = request.parameters.value({"Driver"}).value_or("");
  for (const DriverHabit& habit : kHabits) {
    if (!contains(driver, habit.word)) continue;
    target.debianPackage = habit.debianPackage;
    if (const auto file = request.parameters.value({"DBQ"}); file && habit.word == "mdb") {
      requireAccessFile(hostPath(*file), accessPassword(request));
    }
    const std::string_view first = habit.settings.substr(0, habit.settings.find('='));
    // One driver reads its number under two names.
    if (first.empty() || !request.parameters.value({first, "OPTION"})) text.append(habit.settings);
    break;
  }
  appendCredentials(text, request);
  return target;
}

}  // namespace

bool isForOdbc(const ConnectionString& parameters) {
  const std::string& name = parameters.driverName();
  if (beginsWith(name, "SQLNCLI") || beginsWith(name, "Microsoft.Jet.OLEDB") || beginsWith(name, "MSDASQL"))
    return true;
  if (parameters.value({"Provider"})) return false;
  return parameters.value({"Driver", "DSN"}).has_value();
}

Target odbcTarget(const ConnectRequest& request) {
  const std::string& name = request.parameters.driverName();
  if (beginsWith(name, "SQLNCLI")) return sqlServerTarget(request);
  if (beginsWith(name, "Microsoft.Jet.OLEDB")) return accessTarget(request);
  return otherTarget(request);
}

}  // namespace qvn::data::odbc
