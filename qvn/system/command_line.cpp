#include "qvn/system/command_line.h"

#include <algorithm>

namespace qvn::system {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool isQuote(char c) { return c == '"' || c == '\''; }

// Appends what stands between the quotes at `at`; returns the position behind the closing one.
std::size_t takeQuoted(std::string_view line, std::size_t at, std::string& word) {
  const char quote = line[at++];
  while (at < line.size() && line[at] != quote) {
    if (quote == '"' && line.substr(at, 2) == "\\\"") ++at;
    word.push_back(line[at++]);
  }
  return std::min(at + 1, line.size());
}

}  // namespace

std::vector<std::string> splitCommandLine(std::string_view line) {
  std::vector<std::string> words;
  std::size_t at = 0;
  while (true) {
    while (at < line.size() && isBlank(line[at])) ++at;
    if (at == line.size()) return words;
    std::string& word = words.emplace_back();
    while (at < line.size() && !isBlank(line[at])) {
      if (isQuote(line[at])) {
        at = takeQuoted(line, at, word);
      } else {
        word.push_back(line[at++]);
      }
    }
  }
}

std::string quotedArgument(std::string_view argument) {
  std::string quoted = "'";
  for (const char c : argument) {
    // Between other quotes of its own.
    quoted += c == '\'' ? std::string("'\"'\"'") : std::string(1, c);
  }
  return quoted + "'";
}

}  // namespace qvn::system
