// The client library's objects, owned from the line that obtains them, and the status that each call reports into.
#pragma once

#include <firebird/Interface.h>

#include <memory>

namespace qvn::data::firebird {

inline Firebird::IMaster& clientLibrary() { return *Firebird::fb_get_master_interface(); }

/// What the last call reported. Each call begins by clearing it.
class Status {
 public:
  Status() : wrapper_(clientLibrary().getStatus()) {}
  ~Status() { wrapper_.dispose(); }
  Status(const Status&) = delete;
  Status& operator=(const Status&) = delete;

  [[nodiscard]] Firebird::CheckStatusWrapper* get() { return &wrapper_; }
  [[nodiscard]] bool hasFailed() const { return wrapper_.hasData(); }
  /// The engine's list of codes and their arguments.
  [[nodiscard]] const ISC_STATUS* codes() const { return wrapper_.getErrors(); }

 private:
  Firebird::CheckStatusWrapper wrapper_;
};

// A call that ends an object gives it back only when it succeeds; over a broken connection it is given back by hand.
template <typename Object, typename Call>
void endObject(Object* object, Call call) noexcept {
  Status status;
  call(status.get());
  if (status.hasFailed()) object->release();
}

struct Detach {
  void operator()(Firebird::IAttachment* attachment) const noexcept {
    endObject(attachment, [&](auto* status) { attachment->detach(status); });
  }
};
using AttachmentHandle = std::unique_ptr<Firebird::IAttachment, Detach>;

struct RollBack {
  void operator()(Firebird::ITransaction* transaction) const noexcept {
    endObject(transaction, [&](auto* status) { transaction->rollback(status); });
  }
};
using TransactionHandle = std::unique_ptr<Firebird::ITransaction, RollBack>;

struct FreeStatement {
  void operator()(Firebird::IStatement* statement) const noexcept {
    endObject(statement, [&](auto* status) { statement->free(status); });
  }
};
using StatementHandle = std::unique_ptr<Firebird::IStatement, FreeStatement>;

struct CloseResultSet {
  void operator()(Firebird::IResultSet* rows) const noexcept {
    endObject(rows, [&](auto* status) { rows->close(status); });
  }
};
using ResultSetHandle = std::unique_ptr<Firebird::IResultSet, CloseResultSet>;

struct CloseBlob {
  void operator()(Firebird::IBlob* blob) const noexcept {
    endObject(blob, [&](auto* status) { blob->close(status); });
  }
};
using BlobHandle = std::unique_ptr<Firebird::IBlob, CloseBlob>;

struct Release {
  void operator()(Firebird::IReferenceCounted* object) const noexcept { object->release(); }
};
using MetadataHandle = std::unique_ptr<Firebird::IMessageMetadata, Release>;
using MetadataBuilderHandle = std::unique_ptr<Firebird::IMetadataBuilder, Release>;

struct Dispose {
  void operator()(Firebird::IDisposable* object) const noexcept { object->dispose(); }
};
using ParameterBlock = std::unique_ptr<Firebird::IXpbBuilder, Dispose>;

}  // namespace qvn::data::firebird
