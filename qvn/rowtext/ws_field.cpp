#include "qvn/rowtext/ws_field.h"

namespace qvn::rowtext {

WsFieldPtr newData(std::string_view strKey, const Variant& uData) {
  auto field = std::make_shared<WsField>();
  field->value = uData;
  field->Key = strKey;
  return field;
}

}  // namespace qvn::rowtext
