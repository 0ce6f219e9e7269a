#include "qvn/data/drivers/persist/saved_schema.h"

#include <algorithm>
#include <charconv>

#include "qvn/data/drivers/persist/saved_type.h"
#include "qvn/data/drivers/persist/xml_names.h"

namespace qvn::data::persist {
namespace {

// A column while its element is read.
struct Draft {
  SavedColumn saved;
  std::string dataType = "string";
  std::string dbType;
  bool isNamed = false;  // apart from its attribute; that name may be empty
  bool isFixed = false;
  bool isLong = false;
};

bool isTrue(std::string_view text) { return text == "true" || text == "True" || text == "1"; }

template <typename Number>
void readNumber(const SavedFile& file, Number& number) {
  const std::string_view text = file.value();
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || number < 0) {
    throw file.error("un atributo de columna debe ser un número: «" + std::string(text) + "»");
  }
}

void readTypeAttribute(const SavedFile& file, Draft& draft) {
  if (file.is(kDataTypeUri, "type")) draft.dataType = file.value();
  if (file.is(kDataTypeUri, "maxLength")) readNumber(file, draft.saved.column.definedSize);
  if (file.is(kRowsetUri, "dbtype")) draft.dbType = file.value();
  if (file.is(kRowsetUri, "precision")) readNumber(file, draft.saved.column.precision);
  if (file.is(kRowsetUri, "scale")) readNumber(file, draft.saved.column.scale);
  if (file.is(kRowsetUri, "fixedlength")) draft.isFixed = isTrue(file.value());
  if (file.is(kRowsetUri, "long")) draft.isLong = isTrue(file.value());
}

void readColumnAttribute(const SavedFile& file, Draft& draft) {
  SavedColumn& saved = draft.saved;
  if (file.is("", "name")) saved.attribute = file.value();
  if (file.is(kRowsetUri, "name")) {
    saved.column.name = file.value();
    draft.isNamed = true;
  }
  if (file.is(kRowsetUri, "number")) readNumber(file, saved.number);
  if (file.is(kRowsetUri, "basetable")) saved.origin.table = file.value();
  if (file.is(kRowsetUri, "basecolumn")) saved.origin.column = file.value();
  if (file.is(kRowsetUri, "keycolumn")) saved.origin.isKey = isTrue(file.value());
  if (file.is(kRowsetUri, "autoincrement")) saved.origin.isAutoNumber = isTrue(file.value());
  readTypeAttribute(file, draft);
}

SavedColumn complete(const SavedFile& file, Draft draft) {
  SavedColumn saved = std::move(draft.saved);
  if (saved.attribute.empty()) throw file.error("una columna no tiene nombre");
  if (!draft.isNamed) saved.column.name = saved.attribute;
  const Length length = draft.isLong ? Length::Long : draft.isFixed ? Length::Fixed : Length::Variable;
  const FieldType* type = fieldType({draft.dataType, draft.dbType, length});
  if (type == nullptr) throw file.error("el tipo de columna «" + draft.dataType + "» no se conoce");
  saved.column.type = *type;
  return saved;
}

SavedColumn readColumn(SavedFile& file, int position) {
  Draft draft;
  draft.saved.number = position;
  const int depth = file.depth();
  const bool hasContent = !file.isEmpty();
  while (file.nextAttribute()) readColumnAttribute(file, draft);
  while (hasContent && file.next() && file.depth() > depth) {
    if (!file.isStart() || !file.is(kSchemaUri, "datatype")) continue;
    while (file.nextAttribute()) readTypeAttribute(file, draft);
  }
  return complete(file, std::move(draft));
}

}  // namespace

std::vector<SavedColumn> readSchema(SavedFile& file) {
  if (!file.next() || !file.is("", "xml")) throw file.error("no es un conjunto de registros guardado");
  std::vector<SavedColumn> columns;
  while (file.next()) {
    if (!file.isStart() && file.is(kSchemaUri, "Schema")) break;
    if (file.isStart() && file.is(kSchemaUri, "AttributeType")) {
      columns.push_back(readColumn(file, static_cast<int>(columns.size()) + 1));
    }
  }
  if (columns.empty()) throw file.error("no declara ninguna columna");
  std::ranges::stable_sort(columns, std::less{}, &SavedColumn::number);
  return columns;
}

}  // namespace qvn::data::persist
