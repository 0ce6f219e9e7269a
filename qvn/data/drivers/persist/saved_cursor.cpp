#include "qvn/data/drivers/persist/saved_cursor.h"

#include <algorithm>

#include "qvn/data/drivers/persist/saved_value.h"
#include "qvn/data/drivers/persist/xml_names.h"

namespace qvn::data::persist {

SavedCursor::SavedCursor(const std::filesystem::path& path) : file_(path) {
  for (SavedColumn& saved : readSchema(file_)) {
    if (!byAttribute_.emplace(std::move(saved.attribute), columns_.size()).second) {
      throw file_.error("dos columnas tienen el mismo nombre");
    }
    columns_.push_back(std::move(saved.column));
    origins_.push_back(std::move(saved.origin));
  }
  row_.resize(columns_.size());
}

bool SavedCursor::next() {
  if (isDone_) return false;
  isDone_ = true;  // also when the next line throws
  isDone_ = !stepToRow();
  return !isDone_;
}

bool SavedCursor::stepToRow() {
  std::ranges::fill(row_, Variant(Null{}));
  while (file_.next()) {
    if (file_.is(kRowsetUri, "data")) isInData_ = file_.isStart() && !file_.isEmpty();
    if (file_.is(kRowsetUri, "delete")) deletedDepth_ = file_.isStart() && !file_.isEmpty() ? file_.depth() : -1;
    if (!isInData_ || deletedDepth_ >= 0 || !file_.isStart()) continue;
    if (file_.is(kRowsetUri, "original")) readOriginal();
    if (file_.is(kRowUri, "row")) {
      readRow();
      return true;
    }
  }
  return false;
}

// The new row of a change names only what differs, so that it is laid over the original one.
void SavedCursor::readOriginal() {
  std::ranges::fill(row_, Variant(Null{}));
  if (file_.isEmpty()) return;
  while (file_.next() && !file_.is(kRowsetUri, "original")) {
    if (file_.isStart() && file_.is(kRowUri, "row")) readRow();
  }
}

void SavedCursor::readRow() {
  while (file_.nextAttribute()) {
    if (file_.is(kRowsetUri, "forcenull")) setNull(file_.value());
    if (!file_.uri().empty()) continue;
    const auto found = byAttribute_.find(std::string(file_.name()));
    if (found == byAttribute_.end()) {
      throw file_.error("un registro tiene el campo «" + std::string(file_.name()) + "», que no está declarado");
    }
    const std::size_t index = found->second;
    if (!parseValue(file_.value(), columns_[index].type, row_[index])) {
      throw file_.error("el campo «" + columns_[index].name + "» tiene un valor que su tipo no admite");
    }
  }
}

void SavedCursor::setNull(std::string_view attributes) {
  while (!attributes.empty()) {
    const std::string_view name = attributes.substr(0, attributes.find(' '));
    const auto found = byAttribute_.find(std::string(name));
    if (found != byAttribute_.end()) row_[found->second] = Variant(Null{});
    attributes.remove_prefix(std::min(attributes.size(), name.size() + 1));
  }
}

void SavedCursor::read(std::size_t column, Variant& value) {
  if (const auto* text = row_[column].getIf<std::string>()) {
    value.assignText(*text);
  } else {
    value = row_[column];
  }
}

}  // namespace qvn::data::persist
