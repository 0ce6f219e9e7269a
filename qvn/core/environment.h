// What the library tells its hosts about the person, the station, the program and the network.
//
// The functions that ask the system stand beside the decisions that they rest on, which take what the system said.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/core/network_link.h"
#include "qvn/host/message_box.h"

namespace qvn::core {

/// Name of the signed-in user: the account of the effective user, else what the environment variables USER or LOGNAME
/// say, else "".
std::string GetUserNameW();

/// The system's version as a number; see osVersionOf.
double OsVersion();

/// Major version, point, minor version, read as a decimal number whatever the locale: "6.1.0-13" is 6.1, and "5.10"
/// is 5.1. Text that does not begin with a number is 0.
double osVersionOf(std::string_view release);

/// True when the process runs inside the development environment; see isDevelopmentHost.
bool IsDevEnv();

/// True when the first 255 characters of the host's file name end in "VB", any one character and ".EXE", in any case.
bool isDevelopmentHost(std::string_view moduleFileName);

/// The computer's name, at most 200 bytes of it.
std::string getMyName();

/// What stands before the first NUL; all of it when there is none.
std::string_view untilNul(std::string_view buffer);

/// "SYS" for a value whose text is blank (Empty among them), otherwise the value itself.
/// Throws RuntimeError 94 for Null, 13 for arrays and objects.
Variant EmptySys(const Variant& value);

/// Brings the Internet connection on line, as far as that is in this library's hands: nothing is dialled, and the
/// answer is whether an interface other than loopback is up and running and has an address. False when the system does
/// not list its interfaces.
bool Conectar(NetworkLinks& links);

/// Whether a dial-up connection, or another line with one peer at its end, is up. When the system does not list its
/// interfaces, shows "ERROR" and answers False.
bool IsConnected(NetworkLinks& links, host::MessageBox& messages);

}  // namespace qvn::core
