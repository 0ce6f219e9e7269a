#include "qvn/reports/report.h"

#include "qvn/host/require.h"
#include "qvn/reports/report_run.h"

namespace qvn::reports {

bool Report::run(const data::RecordsetPtr& rows, ReportSink& sink, const ReportObserver& observe) const {
  bool isComplete = false;
  try {
    isComplete = ReportRun(*host::required(rows), settings_, sink).run(observe);
    if (isComplete) sink.end();
  } catch (...) {
    sink.drop();
    throw;
  }
  if (!isComplete) sink.drop();
  return isComplete;
}

bool Report::save(const data::RecordsetPtr& rows, std::string_view path, const ReportFileSettings& file,
                  const ReportObserver& observe) const {
  return run(rows, *newReportFile(path, file), observe);
}

}  // namespace qvn::reports
