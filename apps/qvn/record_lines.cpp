#include "apps/qvn/record_lines.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "apps/qvn/terminal_text.h"
#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/data/connection.h"
#include "qvn/data/driver.h"
#include "qvn/data/driver_registry.h"
#include "qvn/rowtext/read_record.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kTerminator = "¨";
constexpr std::string_view kProvider = "qvn-record-lines";

using Fields = std::shared_ptr<host::Collection>;

// The records of a stream, one after the other.
class RecordReader {
 public:
  RecordReader(std::istream& in, RecordComplaint complain) : in_(in), complain_(std::move(complain)) {}

  /// The next record that reads; null at the end of the stream.
  Fields next() {
    for (std::string text; nextText(text);) {
      try {
        Fields fields = rowtext::WsFields(text);
        if (fields->Count() > 0) return fields;
      } catch (const RuntimeError& error) {
        complain(safeText(error.description()) + " (error " + std::to_string(error.number()) + ")");
      }
    }
    return nullptr;
  }

  void complain(const std::string& what) const { complain_(firstLine_, what); }

 private:
  bool nextText(std::string& text) {
    text.clear();
    firstLine_ = line_ + 1;
    for (std::string line; std::getline(in_, line);) {
      ++line_;
      if (!text.empty()) text.push_back('\n');
      text.append(line);
      if (line.ends_with('\r')) line.pop_back();
      const bool isWhole = line.ends_with(kTerminator) || !text.starts_with(kTerminator);
      if (!isWhole) continue;
      if (text.ends_with('\r')) text.pop_back();
      return true;
    }
    return !text.empty();
  }

  std::istream& in_;
  RecordComplaint complain_;
  std::int64_t line_ = 0;
  std::int64_t firstLine_ = 1;
};

class RecordCursor final : public data::Cursor {
 public:
  RecordCursor(std::unique_ptr<RecordReader> reader, Fields first)
      : reader_(std::move(reader)), current_(std::move(first)) {
    for (const Variant& item : *current_) {
      const rowtext::WsField& field = *rowtext::fieldOf(item);
      data::Column column;
      column.name = field.Key;
      column.type = field.value.getIf<double>() == nullptr ? data::FieldType::VarWChar : data::FieldType::Double;
      columns_.push_back(std::move(column));
    }
    arrange();
  }

  [[nodiscard]] const std::vector<data::Column>& columns() const override { return columns_; }
  [[nodiscard]] std::vector<data::ColumnOrigin> origins() override {
    return std::vector<data::ColumnOrigin>(columns_.size());
  }
  bool next() override {
    if (std::exchange(isFirst_, false)) return true;
    while ((current_ = reader_->next()) != nullptr) {
      const auto stranger = arrange();
      if (!stranger) return true;
      reader_->complain("el campo «" + safeText(*stranger) + "» no está en el primer registro");
    }
    return false;
  }
  void read(std::size_t column, Variant& value) override {
    if (values_[column] == nullptr) {
      value = Null{};
    } else {
      value = *values_[column];
    }
  }

 private:
  // Puts the values of the current record under their columns; the name of a field that has none otherwise.
  std::optional<std::string> arrange() {
    values_.assign(columns_.size(), nullptr);
    std::size_t at = 0;
    for (const Variant& item : *current_) {
      const rowtext::WsField& field = *rowtext::fieldOf(item);
      // Records of one recordset have their fields in one order.
      if (at >= columns_.size() || columns_[at].name != field.Key) {
        const auto found = std::ranges::find_if(
            columns_, [&](const data::Column& column) { return equalIgnoringCase(column.name, field.Key); });
        if (found == columns_.end()) return field.Key;
        at = static_cast<std::size_t>(found - columns_.begin());
      }
      values_[at++] = &field.value;
    }
    return std::nullopt;
  }

  std::unique_ptr<RecordReader> reader_;
  Fields current_;
  std::vector<data::Column> columns_;
  std::vector<const Variant*> values_;
  bool isFirst_ = true;
};

// Its one statement gives the records.
class RecordSession final : public data::Session {
 public:
  explicit RecordSession(std::unique_ptr<data::Cursor> cursor) : cursor_(std::move(cursor)) {}
  data::StatementResult execute(std::string_view /*sql*/) override {
    data::StatementResult result;
    result.cursor = std::move(cursor_);
    return result;
  }
  void setCommandTimeout(std::chrono::seconds /*timeout*/) override {}
  [[nodiscard]] std::string engineVersion() override { return std::string(kProvider); }
  [[nodiscard]] std::string literal(const Variant& value, data::FieldType /*type*/) const override {
    return value.toText();
  }

 private:
  std::unique_ptr<data::Cursor> cursor_;
};

class RecordDriver final : public data::Driver {
 public:
  explicit RecordDriver(std::unique_ptr<data::Cursor> cursor) : cursor_(std::move(cursor)) {}
  [[nodiscard]] std::string_view name() const override { return kProvider; }
  [[nodiscard]] bool accepts(const data::ConnectionString& parameters) const override {
    return parameters.driverName() == kProvider;
  }
  [[nodiscard]] std::unique_ptr<data::Session> connect(const data::ConnectRequest& /*request*/) const override {
    return std::make_unique<RecordSession>(std::move(cursor_));
  }

 private:
  mutable std::unique_ptr<data::Cursor> cursor_;  // handed on to the one session
};

}  // namespace

data::RecordsetPtr recordLines(std::istream& in, RecordComplaint complain) {
  auto reader = std::make_unique<RecordReader>(in, std::move(complain));
  Fields first = reader->next();
  if (!first) return nullptr;
  data::registerDriver(
      std::make_shared<RecordDriver>(std::make_unique<RecordCursor>(std::move(reader), std::move(first))));
  const auto connection = data::Connection::create();
  connection->Open("Provider=" + std::string(kProvider));
  return connection->Execute("records");
}

}  // namespace qvn::cli
