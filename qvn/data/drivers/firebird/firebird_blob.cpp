#include "qvn/data/drivers/firebird/firebird_blob.h"

#include <algorithm>
#include <array>

namespace qvn::data::firebird {
namespace {

constexpr std::size_t kSegmentBytes = 65535;

}  // namespace

std::string_view readBlob(FirebirdLink& link, const Transaction& transaction, ISC_QUAD id, std::string& buffer) {
  auto* const status = link.status();
  const BlobHandle blob(link.attachment().openBlob(status, transaction.handle(), &id, 0, nullptr));
  link.check();
  std::size_t size = 0;
  for (int code = Firebird::IStatus::RESULT_OK; code != Firebird::IStatus::RESULT_NO_DATA;) {
    // Each growth at least doubles the room, so that a blob of n bytes is moved few times.
    if (buffer.size() < size + kSegmentBytes) buffer.resize(std::max(size + kSegmentBytes, 2 * size));
    unsigned length = 0;
    code = blob->getSegment(status, kSegmentBytes, buffer.data() + size, &length);
    link.check();
    size += length;
  }
  return {buffer.data(), size};
}

ISC_QUAD writeBlob(FirebirdLink& link, const Transaction& transaction, std::string_view bytes, int subType) {
  auto* const status = link.status();
  const auto type = static_cast<unsigned char>(subType);
  const std::array<unsigned char, 7> parameters = {
      isc_bpb_version1, isc_bpb_source_type, 1, type, isc_bpb_target_type, 1, type};
  ISC_QUAD id{};
  BlobHandle blob(
      link.attachment().createBlob(status, transaction.handle(), &id, parameters.size(), parameters.data()));
  link.check();
  for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), kSegmentBytes))) {
    blob->putSegment(status, static_cast<unsigned>(std::min(bytes.size(), kSegmentBytes)), bytes.data());
    link.check();
  }
  blob->close(status);
  link.check();
  static_cast<void>(blob.release());
  return id;
}

}  // namespace qvn::data::firebird
