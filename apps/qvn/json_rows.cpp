#include <set>
#include <string>
#include <vector>

#include "apps/qvn/field_text.h"
#include "apps/qvn/row_writer.h"
#include "qvn/automation/json.h"

namespace qvn::cli {
namespace {

// `name`, or the first of "name_2", "name_3", ... that is not yet taken.
std::string freeName(const std::string& name, const std::set<std::string>& taken) {
  std::string free = name;
  for (int number = 2; taken.contains(free); ++number) free = name + "_" + std::to_string(number);
  return free;
}

class JsonRows final : public RowWriter {
 public:
  explicit JsonRows(Output& out) : out_(out) {}

 private:
  void begin(data::Recordset& rows) override {
    std::set<std::string> taken;
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
      std::string key(i == 0 ? "{" : ",");
      automation::appendJsonText(key, *taken.insert(freeName(rows.Fields(i).Name(), taken)).first);
      keys_.push_back(key + ":");
    }
  }

  void add(data::Recordset& rows) override {
    line_.clear();
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      line_.append(keys_[i]);
      appendValue(portableValue(rows.Fields(i)));
    }
    out_ << line_.append("}\n");
  }

  void appendValue(const PortableValue& value) {
    switch (value.kind) {
      case PortableValue::Kind::Null:
        line_.append("null");
        break;
      case PortableValue::Kind::Number:
      case PortableValue::Kind::Boolean:
        line_.append(value.text);
        break;
      case PortableValue::Kind::Text:
        automation::appendJsonText(line_, value.text);
        break;
    }
  }

  Output& out_;
  std::vector<std::string> keys_;  // with what stands before and after each of them
  std::string line_;
};

}  // namespace

std::unique_ptr<RowWriter> jsonRows(Output& out) { return std::make_unique<JsonRows>(out); }

}  // namespace qvn::cli
