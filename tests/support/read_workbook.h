// What an independent reader finds in a workbook file.
#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <string>

namespace qvn::test {

/// As tests/exports/read_workbook.py prints it, which is QVN_WORKBOOK_READER; its complaints too.
inline std::string readWorkbook(const std::string& path) {
  const std::string command = "python3 '" QVN_WORKBOOK_READER "' '" + path + "' 2>&1";
  const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
  std::string text;
  std::array<char, 4096> part{};
  while (output) {
    const std::size_t count = std::fread(part.data(), 1, part.size(), output.get());
    if (count == 0) break;
    text.append(part.data(), count);
  }
  return text;
}

}  // namespace qvn::test
