// One field of a recordset's current row.
#pragma once

#include <cstdint>
#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/driver.h"

namespace qvn::data {

class Recordset;

/// Lives as long as its recordset stays open and follows the current row, so that a loop looks it up once:
///   const Field& amount = rows->Fields("importe");
///   for (; !rows->Eof(); rows->MoveNext()) total += amount.Value().toDouble();
class Field {
 public:
  [[nodiscard]] const std::string& Name() const { return column_->name; }
  [[nodiscard]] FieldType Type() const { return column_->type; }
  /// Characters or bytes that the column holds at most; 0 when the engine does not say.
  [[nodiscard]] std::int64_t DefinedSize() const { return column_->definedSize; }
  [[nodiscard]] int Precision() const { return column_->precision; }
  [[nodiscard]] int NumericScale() const { return column_->scale; }

  /// The value in the current row, an edit not yet saved included. The reference is good until the recordset moves.
  /// Throws ProviderError kNoCurrentRecord before the first and after the last row, or what the engine reports.
  [[nodiscard]] inline const Variant& Value() const;

  /// Sets the value in the row's edit; Recordset::Update saves it. Throws ProviderError kNotSupported when the lock
  /// type is read-only or the column is an expression, kNoCurrentRecord when there is no row.
  void setValue(Variant value);

 private:
  friend class Recordset;
  Field(Recordset& owner, std::size_t index, const Column& column) : owner_(&owner), index_(index), column_(&column) {}

  Recordset* owner_;
  std::size_t index_;
  const Column* column_;
};

}  // namespace qvn::data
