#include "qvn/data/drivers/odbc/installed_drivers.h"

#include <odbcinst.h>

#include <array>
#include <vector>

#include "qvn/base/letter_case.h"

namespace qvn::data::odbc {
namespace {

std::vector<std::string> driverNames() {
  std::array<char, 8192> list{};  // names, each ended by a NUL
  WORD size = 0;
  std::vector<std::string> names;
  if (SQLGetInstalledDrivers(list.data(), static_cast<WORD>(list.size() - 2), &size) == 0) return names;
  for (const char* at = list.data(); *at != '\0'; at += names.back().size() + 1) names.emplace_back(at);
  return names;
}

}  // namespace

std::string registeredDriver(std::string_view word, std::string_view library) {
  for (const std::string& name : driverNames()) {
    if (upperCase(name).find(upperCase(word)) != std::string::npos) return name;
  }
  return std::string(library);
}

std::string registeredDrivers() {
  std::string text;
  for (const std::string& name : driverNames()) text.append(text.empty() ? "" : ", ").append(name);
  return text.empty() ? "ninguno" : text;
}

}  // namespace qvn::data::odbc
