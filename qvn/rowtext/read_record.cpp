#include "qvn/rowtext/read_record.h"

#include <array>

#include "qvn/rowtext/internal/field_pieces.h"
#include "qvn/rowtext/internal/value_text.h"

namespace qvn::rowtext {
namespace {

// Makes fields in blocks: a line of twenty fields would otherwise spend its time in twenty allocations.
class FieldBlocks {
 public:
  WsFieldPtr next() {
    if (used_ == kBlock) {
      block_ = std::make_shared<Block>();
      used_ = 0;
    }
    return {block_, &(*block_)[used_++]};
  }

 private:
  static constexpr std::size_t kBlock = 10;
  using Block = std::array<WsField, kBlock>;
  std::shared_ptr<Block> block_;
  std::size_t used_ = kBlock;
};

}  // namespace

std::shared_ptr<host::Collection> WsFields(std::string_view strWinsock) {
  auto fields = std::make_shared<host::Collection>();
  FieldBlocks blocks;
  internal::FieldPieces pieces(strWinsock);
  while (const auto piece = pieces.next()) {
    WsFieldPtr field = blocks.next();
    internal::readValue(piece->rawValue, field->value);
    field->Key = piece->name;
    fields->Add(ObjectPtr(std::move(field)), piece->name);
  }
  return fields;
}

}  // namespace qvn::rowtext
