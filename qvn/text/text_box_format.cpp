#include "qvn/text/text_box_format.h"

#include <cstdint>
#include <optional>

#include "qvn/base/format_pattern.h"
#include "qvn/base/number_text.h"
#include "qvn/base/runtime_error.h"
#include "qvn/text/decimal_text.h"
#include "qvn/text/padding.h"

namespace qvn::text {
namespace {

// Each step that fails leaves its result as it was and the next one is taken: a box is formatted while the user leaves
// it, where an error would only stand in the way.
template <typename Result, typename Step>
void tryStep(Result& result, Step step) {
  try {
    result = step();
  } catch (const RuntimeError&) {
    return;
  }
}

struct Patterns {
  std::string a;
  std::string b;
};

const host::Ambiente& require(const host::Ambiente* environment) {
  if (environment == nullptr) throw RuntimeError(error_number::kObjectNotSet);
  return *environment;
}

Patterns readPatterns(const host::Ambiente* environment, std::string_view given) {
  Patterns patterns{std::string(given), std::string(given)};
  if (!clEmpty(given)) return patterns;
  tryStep(patterns.a, [&] { return require(environment).FormatoA(); });
  tryStep(patterns.b, [&] { return require(environment).FormatoB(); });
  return patterns;
}

std::string formatByTag(std::string_view tag, const host::TextBox& box, const host::Ambiente* environment,
                        const Patterns& patterns) {
  if (tag == "SF") return {};
  std::string text = box.Text();
  const auto number = [&text] { return Val2(text); };
  if (tag == "N") return formatValue(text, patterns.b);
  if (tag == "D" || tag == "SN") return regionalNumber(number());
  if (tag == "SD") return formatValue(number(), patterns.a);
  if (tag == "FE") {
    std::string patternC;
    tryStep(patternC, [&] { return require(environment).FormatoC(); });
    return formatValue(number(), patternC);
  }
  if (tag == "ND") return formatValue(number(), "###,###,###");
  return text;
}

}  // namespace

std::string AplicaFormato(host::TextBox& Text, const host::Ambiente* Ambiente, std::string_view Formato) {
  std::optional<std::int32_t> caret;
  tryStep(caret, [&] { return Text.SelStart(); });
  const Patterns patterns = readPatterns(Ambiente, Formato);
  std::string tag;
  tryStep(tag, [&] { return Text.Tag(); });
  std::string result;
  tryStep(result, [&] { return formatByTag(tag, Text, Ambiente, patterns); });
  if (caret) {
    tryStep(caret, [&] {
      Text.setSelStart(*caret);
      return caret;
    });
  }
  return result;
}

}  // namespace qvn::text
