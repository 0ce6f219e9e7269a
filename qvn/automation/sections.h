// The table of every public method, in the sections of its reference.
#pragma once

#include <string_view>
#include <vector>

#include "qvn/automation/method.h"

namespace qvn::automation {

struct Section {
  std::string_view title;
  std::vector<std::string_view> headers;  ///< where the functions are explained
  std::vector<Method> methods;
};

// The methods of LumLibreria: those that need a database; those on texts, numbers and dates; the services.
std::vector<Section> databaseSections();
std::vector<Section> textSections();
std::vector<Section> serviceSections();
// The methods of the objects that hosts hold.
std::vector<Section> dataObjectSections();
std::vector<Section> hostObjectSections();
std::vector<Section> reportObjectSections();
std::vector<Section> serviceObjectSections();

/// All of them, put together once.
const std::vector<Section>& allSections();

/// Null for a name that no method has; letters count in their own case.
const Method* findMethod(std::string_view name);

}  // namespace qvn::automation
