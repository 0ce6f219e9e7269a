// Programs that run to their end, with the memory that they took.
#pragma once

#include <string>
#include <vector>

namespace qvn::bench {

struct ChildProgram {
  std::vector<std::string> words;  ///< the program, looked up in the path, and its arguments
  std::string input = "/dev/null";
  std::string output = "/dev/null";
};

/// Waits for the end and returns the most memory that was resident at once, in MB; ends this program when the other one
/// cannot be run or fails.
double peakMegabytes(const ChildProgram& program);

}  // namespace qvn::bench
