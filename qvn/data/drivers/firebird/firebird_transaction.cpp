#include "qvn/data/drivers/firebird/firebird_transaction.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace qvn::data::firebird {
namespace {

std::vector<unsigned char> parameters(bool isReadOnly, std::chrono::seconds lockTimeout) {
  const unsigned char access = isReadOnly ? isc_tpb_read : isc_tpb_write;
  std::vector<unsigned char> block = {isc_tpb_version3, access, isc_tpb_read_committed, isc_tpb_rec_version,
                                      isc_tpb_wait};
  if (lockTimeout > std::chrono::seconds::zero()) {
    const auto longest = std::numeric_limits<std::int32_t>::max();
    const auto limit = static_cast<std::uint32_t>(std::min<std::int64_t>(lockTimeout.count(), longest));
    block.insert(block.end(), {isc_tpb_lock_timeout, sizeof(limit)});
    for (unsigned shift = 0; shift < 32; shift += 8) block.push_back(static_cast<unsigned char>(limit >> shift));
  }
  return block;
}

}  // namespace

Transaction::Transaction(FirebirdLink& link, std::chrono::seconds lockTimeout) : link_(link) {
  const std::vector<unsigned char> block = parameters(link.isReadOnly(), lockTimeout);
  handle_.reset(link.attachment().startTransaction(link.status(), static_cast<unsigned>(block.size()), block.data()));
  link.check();
}

Transaction::~Transaction() {
  if (!handle_ || !isLeftToCursors_) return;
  Status ignored;  // nobody is left to hear of it
  handle_->commit(ignored.get());
  if (!ignored.hasFailed()) static_cast<void>(handle_.release());
}

void Transaction::commit() {
  isLeftToCursors_ = false;
  handle_->commit(link_.status());
  link_.check();
  static_cast<void>(handle_.release());
}

void Transaction::commitRetaining() {
  handle_->commitRetaining(link_.status());
  link_.check();
}

void Transaction::rollbackRetaining() {
  handle_->rollbackRetaining(link_.status());
  link_.check();
}

}  // namespace qvn::data::firebird
