#include "qvn/automation/method.h"

#include "qvn/automation/parse_json.h"

namespace qvn::automation::internal {

Parameter parameterNamed(std::string_view text) {
  Parameter parameter;
  const std::size_t equals = text.find('=');
  parameter.name = text.substr(0, equals);
  if (equals != std::string_view::npos) {
    parameter.isOptional = true;
    parameter.defaultValue = parseJson(text.substr(equals + 1));
  }
  return parameter;
}

const Json& argumentOf(const Parameter& parameter, const Json& in) {
  if (const Json* value = in.find(parameter.name)) return *value;
  if (parameter.isOptional) return parameter.defaultValue;
  throw RuntimeError(error_number::kArgumentRequired,
                     "Falta el argumento «" + parameter.name + "» (" + parameter.type + ")");
}

void rethrowFor(const Parameter& parameter, const RuntimeError& error) {
  throw RuntimeError(error.number(), "Argumento «" + parameter.name + "»: " + error.what(), error.source());
}

}  // namespace qvn::automation::internal
