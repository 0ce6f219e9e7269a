// What a program says.
#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <string>

namespace qvn::test {

/// Everything that a line of the shell writes, its complaints too.
inline std::string outputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> output(popen((command + " 2>&1").c_str(), "r"), pclose);
  std::string text;
  std::array<char, 4096> part{};
  for (std::size_t count = 1; output && count > 0;) {
    count = std::fread(part.data(), 1, part.size(), output.get());
    text.append(part.data(), count);
  }
  return text;
}

}  // namespace qvn::test
