// The program with windows: the same commands in a program of its own, so that this one starts without the libraries
// that windows need.
#pragma once

namespace qvn::cli {

/// The same call goes on in "qvn-ventana", which stands beside this program: returns only by throwing, a RuntimeError
/// when that program cannot be run.
[[noreturn]] void continueWithWindows(char** arguments);

}  // namespace qvn::cli
