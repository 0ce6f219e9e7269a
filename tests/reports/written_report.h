// What a report leaves in its file.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "qvn/reports/report.h"
#include "tests/support/scratch_folder.h"

namespace qvn::test {

/// The file of that ending, whole.
inline std::string writtenReport(const data::RecordsetPtr& rows, const reports::ReportSettings& settings,
                                 const std::string& ending, const reports::TextPage& page = {}) {
  const ScratchFolder folder;
  const std::string name = "informe" + ending;
  EXPECT_TRUE(reports::Report(settings).save(rows, folder.path(name), {.textPage = page}));
  EXPECT_EQ(folder.fileCount(), 1);
  return folder.bytes(name);
}

}  // namespace qvn::test
