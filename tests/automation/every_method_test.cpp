// Each public method is called once through the bridge, and the table of methods is held against the facade.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "apps/qvn/demo/shop_database.h"
#include "qvn/automation/bridge.h"
#include "qvn/data/connection.h"
#include "tests/automation/script_channel.h"
#include "tests/support/scratch_folder.h"

namespace qvn {
namespace {

std::set<std::string> tableNames() {
  std::set<std::string> names;
  for (const automation::Section& section : automation::allSections()) {
    for (const automation::Method& method : section.methods) {
      EXPECT_TRUE(names.insert(method.name).second) << method.name << " stands twice";
    }
  }
  return names;
}

TEST(EveryMethod, AnswersThroughTheBridge) {
  const test::ScratchFolder folder;
  {
    const LumLibreria library;  // makes the drivers known
    const auto connection = data::Connection::create();
    connection->Open("Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + folder.path("tienda.db"));
    cli::demo::buildShop(connection);
  }
  test::ScriptChannel script(QVN_SCRIPT, folder.path(""));
  automation::Bridge(script).run();
  const std::set<std::string> names = tableNames();
  std::vector<std::string> uncalled;
  std::ranges::set_difference(names, script.methods(), std::back_inserter(uncalled));
  EXPECT_EQ(uncalled, std::vector<std::string>());
}

// One declaration of the facade, as its header has it.
struct Declared {
  std::string name;
  std::vector<automation::Parameter> parameters;
};

std::vector<automation::Parameter> parametersOf(std::string text) {
  std::vector<automation::Parameter> parameters;
  // A comma inside <...> separates nothing.
  text = std::regex_replace(text, std::regex("<[^>]*>"), "<>");
  static const std::regex kParameter(R"(\s*([^,]*?)(\w+)\s*(=[^,]*)?(,|$))");
  for (std::sregex_iterator it(text.begin(), text.end(), kParameter), end; it != end; ++it) {
    automation::Parameter parameter;
    parameter.name = (*it)[2];
    const std::string type = (*it)[1];
    parameter.isOptional = (*it)[3].matched;
    const bool isObject = type.find("TextBox") != std::string::npos || type.find("Host") != std::string::npos;
    parameter.isWrittenBack =
        type.find('&') != std::string::npos && type.find("const") == std::string::npos && !isObject;
    parameters.push_back(parameter);
  }
  return parameters;
}

std::vector<Declared> facadeMethods() {
  std::ifstream file(QVN_FACADE);
  std::string header((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  header = std::regex_replace(header, std::regex("//[^\n]*"), "");
  std::vector<Declared> methods;
  static const std::regex kMethod(R"((\w+)\(([^;()]*)\)\s*const;)");
  for (std::sregex_iterator it(header.begin(), header.end(), kMethod), end; it != end; ++it) {
    methods.push_back({(*it)[1], parametersOf((*it)[2])});
  }
  return methods;
}

// Of overloads the table has the longest, whose last argument the others leave out.
bool isSame(const Declared& declared, const automation::Method& method) {
  const std::size_t count = declared.parameters.size();
  if (count != method.parameters.size() &&
      (count + 1 != method.parameters.size() || method.parameters.back().name != "Query")) {
    return false;
  }
  for (std::size_t i = 0; i < count; ++i) {
    const automation::Parameter& left = declared.parameters[i];
    const automation::Parameter& right = method.parameters[i];
    if (left.name != right.name || left.isWrittenBack != right.isWrittenBack) return false;
    if (left.isOptional && !right.isOptional) return false;
  }
  return true;
}

TEST(EveryMethod, TableSaysWhatTheFacadeSays) {
  const std::vector<Declared> facade = facadeMethods();
  ASSERT_GT(facade.size(), 130u);
  std::set<std::string> declaredNames;
  for (const Declared& declared : facade) {
    SCOPED_TRACE(declared.name);
    declaredNames.insert(declared.name);
    const automation::Method* method = automation::findMethod(declared.name);
    ASSERT_NE(method, nullptr);
    EXPECT_TRUE(isSame(declared, *method));
  }
  for (const std::string& name : tableNames()) {
    if (name.find('.') == std::string::npos && name != "Release") {
      EXPECT_TRUE(declaredNames.contains(name)) << name;
    }
  }
}

}  // namespace
}  // namespace qvn
