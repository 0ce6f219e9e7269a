#include "qvn/automation/parse_json.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <string>
#include <utility>
#include <vector>

#include "qvn/base/runtime_error.h"

namespace qvn::automation {
namespace {

/// Puts the value together from the reader's events.
class Builder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Builder> {
 public:
  // Names and signatures are the reader's.
  bool Null() { return place(Json()); }
  bool Bool(bool truth) { return place(Json(truth)); }
  bool RawNumber(const char* digits, rapidjson::SizeType length, bool /*copy*/) {
    return place(Json(JsonNumber{std::string(digits, length)}));
  }
  bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
    return place(Json(std::string(text, length)));
  }
  bool StartArray() { return open(Json::array()); }
  bool EndArray(rapidjson::SizeType /*count*/) { return close(); }
  bool StartObject() { return open(Json::object()); }
  bool Key(const char* name, rapidjson::SizeType length, bool /*copy*/) {
    open_.back().name.assign(name, length);
    return true;
  }
  bool EndObject(rapidjson::SizeType /*count*/) { return close(); }

  Json take() { return std::move(whole_); }

 private:
  struct Level {
    Json value;
    std::string name;  // of the member that comes next
  };

  bool open(Json empty) {
    if (open_.size() == static_cast<std::size_t>(kDeepestJson)) return false;
    open_.push_back({std::move(empty), {}});
    return true;
  }
  bool close() {
    Json value = std::move(open_.back().value);
    open_.pop_back();
    return place(std::move(value));
  }
  bool place(Json value) {
    if (open_.empty()) {
      whole_ = std::move(value);
    } else if (Level& level = open_.back(); level.value.isObject()) {
      level.value.add(level.name, std::move(value));
    } else {
      level.value.add(std::move(value));
    }
    return true;
  }

  std::vector<Level> open_;
  Json whole_;
};

[[noreturn]] void refuse(const rapidjson::ParseResult& result) {
  const std::string where = " (byte " + std::to_string(result.Offset() + 1) + ")";
  if (result.Code() == rapidjson::kParseErrorTermination) {
    throw RuntimeError(error_number::kInvalidCall,
                       "El JSON tiene más de " + std::to_string(kDeepestJson) + " niveles" + where);
  }
  throw RuntimeError(error_number::kInvalidCall,
                     std::string("No es JSON válido: ") + rapidjson::GetParseError_En(result.Code()) + where);
}

}  // namespace

Json parseJson(std::string_view text) {
  constexpr unsigned kFlags =
      rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseValidateEncodingFlag;
  if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
    // The reader would take it for the end.
    throw RuntimeError(error_number::kInvalidCall, "No es JSON válido: un NUL (byte " + std::to_string(nul + 1) + ")");
  }
  rapidjson::MemoryStream bytes(text.data(), text.size());
  rapidjson::Reader reader;
  Builder builder;
  const rapidjson::ParseResult result = reader.Parse<kFlags>(bytes, builder);
  if (result.IsError()) refuse(result);
  return builder.take();
}

}  // namespace qvn::automation
