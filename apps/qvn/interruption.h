// A person's wish that the program end, as by Ctrl-C, for work that should stop at a good place.
#pragma once

namespace qvn::cli {

/// While one exists, Ctrl-C and a request to terminate are remembered instead of ending the process; a second one ends
/// it at once. At most one exists at a time.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  [[nodiscard]] static bool isRequested();
};

}  // namespace qvn::cli
