#include "qvn/data/drivers/persist/persist_store.h"

#include <string>
#include <unordered_set>

#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/data/drivers/persist/handles.h"
#include "qvn/data/drivers/persist/new_file.h"
#include "qvn/data/drivers/persist/saved_type.h"
#include "qvn/data/drivers/persist/saved_value.h"
#include "qvn/data/drivers/persist/xml_names.h"

namespace qvn::data {
namespace persist {
namespace {

const xmlChar* chars(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

// The library would print a failure where the host's own messages go; the file keeps it.
int feedFile(void* file, const char* text, int size) {
  static_cast<NewFile*>(file)->write({text, static_cast<std::size_t>(size)});
  return size;
}

// The file as elements.
class Document {
 public:
  explicit Document(NewFile& file) : file_(file) {
    xmlOutputBuffer* output = xmlOutputBufferCreateIO(&feedFile, nullptr, &file, nullptr);
    if (output == nullptr) throw RuntimeError(error_number::kOutOfStringSpace);
    writer_.reset(xmlNewTextWriter(output));
    if (!writer_) {
      xmlOutputBufferClose(output);
      throw RuntimeError(error_number::kOutOfStringSpace);
    }
    check(xmlTextWriterStartDocument(writer_.get(), "1.0", "UTF-8", nullptr));
  }

  void start(const char* name) { check(xmlTextWriterStartElement(writer_.get(), chars(name))); }
  void end() { check(xmlTextWriterEndElement(writer_.get())); }
  void lineEnd() { check(xmlTextWriterWriteRaw(writer_.get(), chars("\n"))); }
  void finish() { check(xmlTextWriterEndDocument(writer_.get())); }
  void attribute(const char* name, const std::string& value) {
    check(xmlTextWriterWriteAttribute(writer_.get(), chars(name), chars(value.c_str())));
  }
  void attribute(const char* name, std::string_view value) { attribute(name, std::string(value)); }
  void mark(const char* name, bool isSet) {
    if (isSet) attribute(name, std::string("true"));
  }
  void number(const char* name, std::int64_t value) {
    if (value > 0) attribute(name, std::to_string(value));
  }
  void textIfAny(const char* name, const std::string& value) {
    if (!value.empty()) attribute(name, value);
  }

 private:
  void check(int outcome) const {
    file_.requireWritten();
    if (outcome < 0) throw RuntimeError(error_number::kOutOfStringSpace);
  }

  const NewFile& file_;
  WriterHandle writer_;
};

bool isPlainName(std::string_view name) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
  if (name.empty() || !isLetter(name.front())) return false;
  if (equalIgnoringCase(name.substr(0, 3), "xml")) return false;  // XML keeps these for itself
  return name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") ==
         std::string_view::npos;
}

// Names that XML does not take as they are, and repeated ones, are numbered.
std::vector<std::string> attributeNames(const std::vector<Column>& columns) {
  std::unordered_set<std::string> taken;
  for (const Column& column : columns) taken.insert(column.name);
  std::unordered_set<std::string> used;
  std::vector<std::string> names;
  for (const Column& column : columns) {
    std::string name = column.name;
    if (!isPlainName(name) || used.contains(name)) {
      name = "c" + std::to_string(names.size());
      while (taken.contains(name)) name.append("_");
    }
    used.insert(name);
    names.push_back(std::move(name));
  }
  return names;
}

std::string nameText(const std::string& name) {
  try {
    return formatValue(Variant(name), FieldType::VarWChar);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), "El nombre «" + utf8::sanitize(name) +
                                           "» tiene un carácter que el archivo no admite; dé otro nombre a la columna "
                                           "en la consulta (AS)");
  }
}

void writeType(Document& document, const Column& column) {
  const SavedType& type = savedType(column.type);
  document.start("s:datatype");
  document.attribute("dt:type", type.dataType);
  document.textIfAny("rs:dbtype", std::string(type.dbType));
  document.number("dt:maxLength", column.definedSize);
  document.number("rs:precision", column.precision);
  document.number("rs:scale", column.scale);
  document.mark("rs:fixedlength", type.length == Length::Fixed);
  document.mark("rs:long", type.length == Length::Long);
  document.end();
}

void writeColumn(Document& document, const Column& column, const ColumnOrigin& origin, const std::string& attribute,
                 std::size_t position) {
  document.start("s:AttributeType");
  document.attribute("name", attribute);
  if (attribute != column.name) document.attribute("rs:name", nameText(column.name));
  document.attribute("rs:number", std::to_string(position));
  document.mark("rs:nullable", true);
  document.textIfAny("rs:basetable", nameText(origin.table));
  document.textIfAny("rs:basecolumn", nameText(origin.column));
  document.mark("rs:keycolumn", origin.isKey);
  document.mark("rs:autoincrement", origin.isAutoNumber);
  writeType(document, column);
  document.end();
  document.lineEnd();
}

void writeSchema(Document& document, Cursor& rows, const std::vector<std::string>& attributes) {
  const std::vector<Column>& columns = rows.columns();
  std::vector<ColumnOrigin> origins = rows.origins();
  origins.resize(columns.size());
  document.start("s:Schema");
  document.attribute("id", std::string("RowsetSchema"));
  document.start("s:ElementType");
  document.attribute("name", std::string("row"));
  document.attribute("content", std::string("eltOnly"));
  document.lineEnd();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    writeColumn(document, columns[i], origins[i], attributes[i], i + 1);
  }
  document.start("s:extends");
  document.attribute("type", std::string("rs:rowbase"));
  document.end();
  document.end();
  document.end();
  document.lineEnd();
}

// Null has no attribute; a field that nobody set is saved as Null too.
void writeValue(Document& document, const Column& column, const std::string& attribute, const Variant& value) {
  if (value.isNull() || value.isEmpty()) return;
  try {
    document.attribute(attribute.c_str(), formatValue(value, column.type));
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), "El campo «" + utf8::sanitize(column.name) +
                                           "» tiene un valor que no cabe en el archivo sin perder algo: "
                                           "un carácter de control o un valor que su tipo no admite");
  }
}

void writeRows(Document& document, Cursor& rows, const std::vector<std::string>& attributes) {
  document.start("rs:data");
  document.lineEnd();
  Variant value;
  while (rows.next()) {
    document.start("z:row");
    for (std::size_t i = 0; i < attributes.size(); ++i) {
      rows.read(i, value);
      writeValue(document, rows.columns()[i], attributes[i], value);
    }
    document.end();
    document.lineEnd();
  }
  document.end();
}

class PersistStore final : public RecordsetStore {
 public:
  void save(Cursor& rows, const std::filesystem::path& path) const override {
    NewFile file(path);
    {
      Document document(file);
      document.start("xml");
      document.attribute("xmlns:s", kSchemaUri);
      document.attribute("xmlns:dt", kDataTypeUri);
      document.attribute("xmlns:rs", kRowsetUri);
      document.attribute("xmlns:z", kRowUri);
      const std::vector<std::string> attributes = attributeNames(rows.columns());
      writeSchema(document, rows, attributes);
      writeRows(document, rows, attributes);
      document.finish();
    }
    file.publish();
  }
};

}  // namespace
}  // namespace persist

std::shared_ptr<const RecordsetStore> persistStore() { return std::make_shared<persist::PersistStore>(); }

}  // namespace qvn::data
