#include "qvn/automation/reference.h"

#include <utility>

namespace qvn::automation {
namespace {

constexpr std::string_view kPageHead = R"(# Methods

Every public method by its name, with its arguments in order, as `qvn puente` takes them ([bridge.md](bridge.md)) and as hosts in
C++ call them. Those without a point in their name belong to `LumLibreria`; the others to an object, whose number stands in the
argument `this`. An argument in brackets may be left out, and then has the value behind "=". A type with a "*" is written back. What
a method does, raises and leaves behind is said in the header named above its table. `qvn metodos --markdown` writes this page.
)";

std::string argumentText(const Parameter& parameter) {
  std::string text = parameter.name + " " + parameter.type + (parameter.isWrittenBack ? "*" : "");
  if (parameter.isOptional) text = "[" + text + " = " + toText(parameter.defaultValue) + "]";
  return text;
}

std::string argumentsText(const Method& method) {
  std::string text;
  for (const Parameter& parameter : method.parameters) {
    if (!text.empty()) text.append(", ");
    text.append(argumentText(parameter));
  }
  return text;
}

void appendSection(std::string& page, const Section& section) {
  page.append("\n## ").append(section.title).append("\n\n");
  std::string_view separator;
  for (const std::string_view header : section.headers) {
    page.append(separator).append("[").append(header).append("](../").append(header).append(")");
    separator = ", ";
  }
  page.append("\n\n| Method | Arguments | Result |\n|---|---|---|\n");
  for (const Method& method : section.methods) {
    const std::string arguments = argumentsText(method);
    page.append("| `").append(method.name).append("` | ");
    if (!arguments.empty()) page.append("`").append(arguments).append("` ");
    page.append("| ").append(method.result).append(" |\n");
  }
}

}  // namespace

std::string signatureOf(const Method& method) {
  std::string text = method.name + "(" + argumentsText(method) + ")";
  if (!method.result.empty()) text.append(" -> ").append(method.result);
  return text;
}

Json descriptionOf(const Method& method) {
  Json parameters = Json::array();
  for (const Parameter& parameter : method.parameters) {
    Json item = Json::object();
    item.add("name", parameter.name);
    item.add("type", parameter.type);
    item.add("optional", parameter.isOptional);
    if (parameter.isOptional) item.add("default", parameter.defaultValue);
    item.add("writtenBack", parameter.isWrittenBack);
    parameters.add(std::move(item));
  }
  Json object = Json::object();
  object.add("name", method.name);
  object.add("parameters", std::move(parameters));
  object.add("result", method.result.empty() ? Json() : Json(method.result));
  return object;
}

std::string referencePage() {
  std::string page(kPageHead);
  for (const Section& section : allSections()) appendSection(page, section);
  return page;
}

}  // namespace qvn::automation
