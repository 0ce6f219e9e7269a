// The files in which errors are kept, a file a day.
#pragma once

#include <functional>
#include <istream>
#include <string>
#include <string_view>

#include "qvn/base/date.h"

namespace qvn::core {

/// Folder and name of a day's log, joined as they are: "...\QuorvinError07032012.Log".
std::string errorLogPath(std::string_view folder, Date day);

/// One error: the time of day as "10:42:07", where it happened, and its text, which may have several lines.
struct ErrorRecord {
  std::string time;
  std::string module;
  std::string procedure;
  std::string description;
};

/// The record as it stands in the log: four lines, each ended by CR LF. A blank line follows it there.
std::string errorRecordText(const ErrorRecord& record);

/// Hands over the records of a log in their order. Lines that belong to none are passed over.
void readErrorLog(std::istream& log, const std::function<void(const ErrorRecord&)>& take);

}  // namespace qvn::core
