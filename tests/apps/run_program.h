// Runs the built program as a person or a script does, and shows what came out.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace qvn::test {

// Members have initializers so that a call names only those that it sets.
/// One run. Of the tests' own environment it sees neither QVN_CONEXION nor the regional settings, which are those of
/// "C".
struct Call {
  std::vector<std::string> arguments = {};
  std::string input = {};
  std::vector<std::string> environment = {};  ///< "NAME=value", over what the tests themselves see
  std::filesystem::path folder = {};          ///< current folder; that of the tests when empty
  std::string outputFile = {};                ///< takes the standard output instead of Outcome::out
  bool hasReader = true;                      ///< false: nobody reads the standard output
  std::string program = {};                   ///< another program than qvn
};

struct Outcome {
  int status = -1;  ///< exit status; the negative number of the signal that ended it
  std::string out;
  std::string err;
};

/// The status is 127 when the program cannot be started.
Outcome run(const Call& call);

/// A run of qvn without anything special.
inline Outcome runQvn(std::vector<std::string> arguments) { return run({.arguments = std::move(arguments)}); }

/// A run that has to end with `status`. Its messages have to hold each of the pieces, and to begin as the program's do;
/// without pieces it has to say nothing.
Outcome expectRun(int status, const Call& call, const std::vector<std::string>& said = {});

/// Each of the pieces has to stand in the text.
void expectHolds(const std::string& text, const std::vector<std::string>& pieces);

/// An empty database for a run.
inline const std::string kMemory = "Provider=SQLite;Data Source=:memory:";

/// Runs of one command in a folder of their own, on an empty database.
class CommandInFolder : public testing::Test {
 protected:
  explicit CommandInFolder(std::string command) : command_(std::move(command)) {}
  [[nodiscard]] Call call(std::vector<std::string> arguments, std::string input = {}) const {
    arguments.insert(arguments.begin(), command_);
    return {.arguments = std::move(arguments),
            .input = std::move(input),
            .environment = {"QVN_CONEXION=" + kMemory},
            .folder = folder_.folder()};
  }

  ScratchFolder folder_;

 private:
  std::string command_;
};

}  // namespace qvn::test
