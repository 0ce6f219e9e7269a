// The handheld device that a call names.
#pragma once

#include <array>
#include <chrono>

#include "apps/qvn/options.h"
#include "qvn/devices/device_link.h"
#include "qvn/devices/windows_ce.h"

namespace qvn::cli {

inline constexpr Option kDeviceFolderOption{"carpeta", 0, "CARPETA", "el dispositivo es esta carpeta montada"};
inline constexpr Option kDeviceLibraryOption{"biblioteca", 0, "LIB",
                                             "biblioteca de acceso remoto (la variable\nQVN_RAPI si falta)"};
inline constexpr Option kDeviceWaitOption{"espera", 0, "SEGUNDOS",
                                          "cuánto espera a que el dispositivo conteste\n(10 si falta)"};

/// Ends with the object.
class DeviceSession {
 public:
  /// Throws UsageError when the call names no device or two, and RuntimeError when the device does not answer.
  explicit DeviceSession(const Arguments& arguments);
  ~DeviceSession();
  DeviceSession(const DeviceSession&) = delete;
  DeviceSession& operator=(const DeviceSession&) = delete;

  [[nodiscard]] std::chrono::milliseconds wait() const { return wait_; }
  [[nodiscard]] devices::WindowsCe device() const { return devices::WindowsCe(*link_); }

 private:
  std::chrono::milliseconds wait_;
  devices::DeviceLinkPtr link_;
};

}  // namespace qvn::cli
