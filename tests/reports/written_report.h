// What a report leaves in its file.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "qvn/reports/report.h"
#include "tests/support/scratch_folder.h"

namespace qvn::test {

inline std::string fileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The file of that ending, whole.
inline std::string writtenReport(const data::RecordsetPtr& rows, const reports::ReportSettings& settings,
                                 const std::string& ending, const reports::TextPage& page = {}) {
  const ScratchFolder folder;
  const std::string path = folder.path("informe" + ending);
  EXPECT_TRUE(reports::Report(settings).save(rows, path, {.textPage = page}));
  EXPECT_EQ(folder.fileCount(), 1);
  return fileText(path);
}

}  // namespace qvn::test
