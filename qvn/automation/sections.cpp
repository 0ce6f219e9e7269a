#include "qvn/automation/sections.h"

#include <iterator>
#include <unordered_map>
#include <utility>

namespace qvn::automation {
namespace {

std::vector<Section> gathered() {
  std::vector<Section> all;
  for (auto* part : {databaseSections, textSections, serviceSections, dataObjectSections, hostObjectSections,
                     reportObjectSections, serviceObjectSections}) {
    std::vector<Section> sections = part();
    std::move(sections.begin(), sections.end(), std::back_inserter(all));
  }
  return all;
}

std::unordered_map<std::string_view, const Method*> byName() {
  std::unordered_map<std::string_view, const Method*> methods;
  for (const Section& section : allSections()) {
    for (const Method& method : section.methods) methods.emplace(method.name, &method);
  }
  return methods;
}

}  // namespace

const std::vector<Section>& allSections() {
  static const std::vector<Section> kSections = gathered();
  return kSections;
}

const Method* findMethod(std::string_view name) {
  static const std::unordered_map<std::string_view, const Method*> kMethods = byName();
  const auto found = kMethods.find(name);
  return found == kMethods.end() ? nullptr : found->second;
}

}  // namespace qvn::automation
