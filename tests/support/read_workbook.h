// What an independent reader finds in a workbook file.
#pragma once

#include "tests/support/program_output.h"

namespace qvn::test {

/// As tests/exports/read_workbook.py prints it, which is QVN_WORKBOOK_READER.
inline std::string readWorkbook(const std::string& path) {
  return outputOf("python3 '" QVN_WORKBOOK_READER "' '" + path + "'");
}

}  // namespace qvn::test
