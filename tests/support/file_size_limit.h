// A disk that has room for so much and no more.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace qvn::test {

/// Files of this process grow no further than this while it lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : formerAction_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit limit{bytes, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, formerAction_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*formerAction_)(int);
  rlimit former_{};
};

}  // namespace qvn::test
