#include "qvn/automation/class_names.h"

#include <array>

namespace qvn::automation {
namespace {

struct NamedClass {
  std::string_view name;
  bool (*holds)(const Object& object);
};

template <typename Class>
constexpr NamedClass named() {
  static_assert(!kClassName<Class>.empty());
  return {kClassName<Class>, [](const Object& object) { return dynamic_cast<const Class*>(&object) != nullptr; }};
}

constexpr auto kClasses = std::to_array<NamedClass>({
    named<data::Connection>(),       named<data::Recordset>(),
    named<host::Ambiente>(),         named<host::Query>(),
    named<host::StatementBuilder>(), named<host::Collection>(),
    named<host::TextBox>(),          named<host::FileSystemObject>(),
    named<host::TextStream>(),       named<host::PendingStatementsHost>(),
    named<host::PendingStatement>(), named<rowtext::WsField>(),
    named<rowtext::TextData>(),      named<barcode::Picture>(),
    named<CanvasObject>(),           named<system::DOSOutputs>(),
    named<system::Ping>(),           named<exports::SpreadsheetExport>(),
    named<dialogs::Progress>(),      named<devices::QvnMobile>(),
});

}  // namespace

std::string_view classNameOf(const Object& object) {
  for (const NamedClass& candidate : kClasses) {
    if (candidate.holds(object)) return candidate.name;
  }
  return kClassName<Object>;
}

}  // namespace qvn::automation
