// The table of every public method as people and programs read it.
#pragma once

#include <string>

#include "qvn/automation/sections.h"

namespace qvn::automation {

/// "Question(strMensaje String, [DefaultButton Integer = 1]) -> Boolean". A "*" behind a type: it is written back.
std::string signatureOf(const Method& method);

/// An object with the method's name, parameters and result.
Json descriptionOf(const Method& method);

/// The reference of all methods in Markdown.
std::string referencePage();

}  // namespace qvn::automation
