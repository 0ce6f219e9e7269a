// Rows of a statement, and edits of them.
//
//   auto rows = std::make_shared<Recordset>();
//   rows->Open("SELECT cliente, saldo FROM clients", connection);
//   for (; !rows->Eof(); rows->MoveNext()) use(rows->Fields("saldo").Value());
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/field.h"

namespace qvn::data {

class Connection;
using ConnectionPtr = std::shared_ptr<Connection>;

class Recordset;
using RecordsetPtr = std::shared_ptr<Recordset>;

enum class CursorLocation { Server = 2, Client = 3 };
enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };
enum class ObjectState { Closed = 0, Open = 1 };
enum class EditMode { None = 0, InProgress = 1, Add = 2 };

/// A recordset streams its rows when its cursor is on the server side and forward-only: memory does not grow with their
/// number and it only moves forward. In every other case it holds all rows and can move anywhere.
///
/// Unless a method says otherwise it throws ProviderError kObjectClosed on a closed recordset.
class Recordset : public Object {
 public:
  Recordset();
  ~Recordset() override;
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // Settings; they can be changed while the recordset is closed and throw ProviderError kObjectOpen afterwards.
  // The cursor location starts as that of the connection at Open, the cursor type as ForwardOnly, the lock as ReadOnly.
  void setCursorLocation(CursorLocation location);
  void setCursorType(CursorType type);
  void setLockType(LockType type);
  [[nodiscard]] CursorLocation cursorLocation() const;
  [[nodiscard]] CursorType cursorType() const;
  [[nodiscard]] LockType lockType() const;

  /// Runs the statement and stands on its first row. A statement that yields no rows leaves the recordset closed.
  /// @throws ProviderError  kObjectOpen when it is open already, kObjectClosed when the connection is closed, or what
  ///         the engine reports; the recordset then stays closed
  /// @throws RuntimeError   91 when `connection` is null
  void Open(std::string_view source, const ConnectionPtr& connection);

  /// The same on a connection of its own, opened with `connectionString` and closed with the recordset.
  void Open(std::string_view source, std::string_view connectionString);

  /// Frees the rows and drops an edit that was not saved. Harmless on a closed recordset.
  void Close() noexcept;

  [[nodiscard]] ObjectState State() const noexcept;
  [[nodiscard]] ConnectionPtr ActiveConnection() const;
  [[nodiscard]] const std::string& Source() const;

  /// True after the last row, and when there are no rows.
  [[nodiscard]] bool Eof() const;
  /// True before the first row, and when there are no rows.
  [[nodiscard]] bool Bof() const;
  /// Number of rows, or -1 when the recordset streams.
  [[nodiscard]] std::int64_t RecordCount() const;
  /// Position of the current row from 1; -1 outside the rows or when the recordset streams.
  [[nodiscard]] std::int64_t AbsolutePosition() const;

  // Moves save an edit in progress first. Moving past an end stops there; moving on from there throws ProviderError
  // kNoCurrentRecord. A streaming recordset throws kNotSupported for every move but MoveNext.
  void MoveNext();
  void MovePrevious();
  void MoveFirst();
  void MoveLast();

  /// By name, without regard to case (the first of equal names). Throws ProviderError kNoSuchItem.
  Field& Fields(std::string_view name);
  /// By position from 0. Throws ProviderError kNoSuchItem.
  Field& Fields(std::size_t index);
  // A literal 0 would otherwise be taken for a null name as well.
  Field& Fields(int index) { return Fields(static_cast<std::size_t>(index)); }
  [[nodiscard]] std::size_t FieldCount() const;

  /// Starts a new row, whose fields are Empty until they are set; Update inserts it.
  void AddNew();
  /// Saves the row's edit; does nothing without one. Only the fields that were set are written. A row that is changed
  /// is found by its primary key and by the values that the changed fields had when they were read. The edit stays in
  /// place when the engine refuses it.
  /// @throws ProviderError  kRowChanged when the row was changed or deleted meanwhile, kNotSupported when the lock type
  ///         is read-only or the fields come from no single table with a primary key, or what the engine reports
  void Update();
  /// Drops the row's edit.
  void CancelUpdate();
  /// Deletes the current row at once; there is no current row until the next move. Throws as Update does.
  void Delete();
  [[nodiscard]] EditMode editMode() const;

  /// Saves an edit in progress, then writes all rows to a new file, which the provider MSPersist opens again; the
  /// current row stays (after a deletion it is the next one). A streaming recordset writes the current row and those
  /// after it, and ends behind the last. No file is left when something fails.
  /// @throws ProviderError  kNotSupported when nothing can save recordsets, or what the engine reports
  /// @throws RuntimeError   58 when the file exists, 13 for a value that a file cannot hold, or what the system refuses
  void Save(std::string_view path);

 private:
  friend class Field;
  friend class Connection;
  struct Opened;  // what exists only while the recordset is open

  void adopt(const ConnectionPtr& connection, std::unique_ptr<Cursor> cursor);
  [[nodiscard]] Opened& opened() const;
  [[noreturn]] static void refuseClosed();
  [[nodiscard]] const Variant& valueOf(std::size_t index) const;
  void setValueOf(std::size_t index, Variant value);
  void requireRow() const;
  void requireWritable();
  void requireClosed() const;
  template <typename Step>
  void move(Step step);
  void insertRow();
  void changeRow();
  std::int64_t write(const std::string& sql, std::int64_t* insertedNumber = nullptr);

  std::optional<CursorLocation> location_;
  CursorType type_ = CursorType::ForwardOnly;
  LockType lock_ = LockType::ReadOnly;
  std::string source_;
  std::unique_ptr<Opened> opened_;
  // Place in the connection's list of open recordsets, while this one is open.
  Recordset* nextOpen_ = nullptr;
  Recordset** linkToThis_ = nullptr;
};

const Variant& Field::Value() const { return owner_->valueOf(index_); }

}  // namespace qvn::data
