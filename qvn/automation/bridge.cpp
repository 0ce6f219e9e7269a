#include "qvn/automation/bridge.h"

#include <new>
#include <utility>

#include "qvn/automation/bridge_dialogs.h"
#include "qvn/automation/parse_json.h"
#include "qvn/automation/values.h"
#include "qvn/base/runtime_error.h"

namespace qvn::automation {
namespace {

Json errorOf(const RuntimeError& error) {
  Json object = Json::object();
  object.add("number", error.number());
  object.add("description", toJson(error.description()));
  object.add("source", toJson(error.source()));
  if (const auto* provider = dynamic_cast<const data::ProviderError*>(&error)) {
    object.add("errors", errorItems(provider->errors()));
  }
  return object;
}

// A misspelt name would otherwise leave an argument at its default without a word.
void requireKnown(const Method& method, const Json& in) {
  for (const Json::Member& member : *in.members()) {
    bool isKnown = false;
    for (const Parameter& parameter : method.parameters) isKnown = isKnown || parameter.name == member.name;
    if (isKnown) continue;
    throw RuntimeError(error_number::kNoSuchArgument, method.name + " no tiene un argumento «" + member.name + "»");
  }
}

}  // namespace

Bridge::Bridge(LineChannel& channel, MethodFinder finder)
    : conversation_(channel),
      dialogs_(std::make_shared<BridgeDialogs>(conversation_)),
      library_(dialogs_),
      session_{objects_, conversation_, dialogs_, library_},
      finder_(finder) {}

void Bridge::run() {
  while (true) {
    try {
      const auto line = conversation_.nextLine();
      if (!line) return;
      conversation_.write(answerTo(*line));
    } catch (const RuntimeError& error) {
      if (error.number() == error_number::kDeviceError) throw;
      Json answer = Json::object();
      answer.add("id", Json());
      answer.add("error", errorOf(error));
      conversation_.write(answer);
    }
  }
}

Json Bridge::answerTo(std::string_view line) {
  Json answer = Json::object();
  const Json request = parseJson(line);
  const Json* id = request.find("id");
  answer.add("id", id == nullptr ? Json() : *id);
  try {
    answer.add("out", resultOf(request));
  } catch (const RuntimeError& error) {
    answer.add("error", errorOf(error));
  } catch (const std::bad_alloc&) {
    answer.add("error", errorOf(RuntimeError(error_number::kOutOfMemory)));
  } catch (const std::exception& error) {
    answer.add("error", errorOf(RuntimeError(error_number::kInvalidCall, error.what())));
  }
  return answer;
}

Json Bridge::resultOf(const Json& request) {
  const Json* op = request.find("op");
  if (op == nullptr || op->text() == nullptr) {
    throw RuntimeError(error_number::kInvalidCall,
                       "Falta «op», el nombre del método: {\"id\":1,\"op\":\"Mes\",\"in\":{\"nMes\":3}}");
  }
  const Method* method = finder_(*op->text());
  if (method == nullptr) {
    throw RuntimeError(error_number::kNoSuchMethod, "No hay un método «" + *op->text() + "»; «qvn metodos» los lista");
  }
  static const Json kNoArguments = Json::object();
  const Json* in = request.find("in");
  if (in == nullptr) in = &kNoArguments;
  if (!in->isObject()) {
    throw RuntimeError(error_number::kTypeMismatch, "«in» tiene que ser un objeto con los argumentos por su nombre");
  }
  requireKnown(*method, *in);
  return method->call(*method, *in, session_);
}

}  // namespace qvn::automation
