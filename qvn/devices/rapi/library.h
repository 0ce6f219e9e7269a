// A remote access library in this process.
#pragma once

#include <memory>
#include <string>

#include "qvn/devices/rapi/rapi_types.h"

namespace qvn::devices::rapi {

class Library {
 public:
  /// Loads it: a path, or a name that the system looks for among its libraries.
  /// @throws RuntimeError  53 when it cannot be loaded, 453 when it lacks a function
  explicit Library(const std::string& path);

  [[nodiscard]] const Functions& functions() const { return functions_; }

 private:
  struct Unload {
    void operator()(void* library) const noexcept;
  };

  std::unique_ptr<void, Unload> library_;
  Functions functions_{};
};

}  // namespace qvn::devices::rapi
