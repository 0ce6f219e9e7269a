// Opening documents and starting programs as the desktop does.
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::system {

/// Results of ShellRun below kShellSucceeded.
namespace shell_result {
inline constexpr std::int32_t kNoMemory = 8;
inline constexpr std::int32_t kFileNotFound = 2;
inline constexpr std::int32_t kFolderNotFound = 3;
inline constexpr std::int32_t kForbidden = 5;
inline constexpr std::int32_t kNoAssociation = 31;
inline constexpr std::int32_t kSucceeded = 33;
}  // namespace shell_result

/// Opens `file` and does not wait for it. A program (a file that may be run, or a name that PATH finds) is started with
/// `parameters`, split as splitCommandLine does, in `directory`; a document, folder or address such as
/// "https://..." is given to the desktop's opener, xdg-open. `operation` is "", "open" or "explore", in any case, or
/// "print" for a document that goes to the printer by lp. The window handle and the show command say nothing here.
///
/// Returns a number above 32 when it was started; else 2 no such file, 3 no such folder, 5 it may not be run, 8 out of
/// memory, 31 nothing opens it or does that operation.
std::int32_t ShellRun(const Variant& window, std::string_view operation, std::string_view file,
                      std::string_view parameters, std::string_view directory, std::int32_t showCommand);

/// Starts a command line, split as splitCommandLine does, and does not wait for it. `windowStyle` says nothing here.
///
/// @throws RuntimeError  53 when there is no such program, 70 when it may not be run, 5 for an empty command; as
///                       Variant::toLong for a window style that is no number
void ShellCommand(std::string_view command, const Variant& windowStyle);

}  // namespace qvn::system
