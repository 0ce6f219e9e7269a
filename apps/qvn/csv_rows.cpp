#include <string>

#include "apps/qvn/field_text.h"
#include "apps/qvn/row_writer.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

void appendQuoted(std::string& line, std::string_view text) {
  line.push_back('"');
  for (const char c : text) {
    if (c == '"') line.push_back('"');
    line.push_back(c);
  }
  line.push_back('"');
}

void appendText(std::string& line, std::string_view text) {
  if (text.empty() || text.find_first_of(",\"\r\n") != std::string_view::npos) {
    appendQuoted(line, text);
  } else {
    line.append(text);
  }
}

class CsvRows final : public RowWriter {
 public:
  explicit CsvRows(Output& out) : out_(out) {}

 private:
  void begin(data::Recordset& rows) override {
    writeLine(rows, [](std::string& line, const data::Field& field) { appendText(line, field.Name()); });
  }

  void add(data::Recordset& rows) override {
    writeLine(rows, [](std::string& line, const data::Field& field) {
      const PortableValue value = portableValue(field);
      if (value.kind == PortableValue::Kind::Text) {
        appendText(line, value.text);
      } else {
        line.append(value.text);
      }
    });
  }

  template <typename AppendField>
  void writeLine(data::Recordset& rows, AppendField appendField) {
    line_.clear();
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
      if (i > 0) line_.push_back(',');
      appendField(line_, rows.Fields(i));
    }
    out_ << line_.append(kLineEnd);
  }

  Output& out_;
  std::string line_;
};

}  // namespace

std::unique_ptr<RowWriter> csvRows(Output& out) { return std::make_unique<CsvRows>(out); }

}  // namespace qvn::cli
