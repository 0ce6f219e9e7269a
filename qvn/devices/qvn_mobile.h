// The class by which hosts reach a handheld device.
//
//   if (mobile->Connect().toBoolean()) {
//     mobile->CopyFileFromPocket(R"(\My Documents\inventario.txt)", R"(C:\datos\inventario.txt)");
//     mobile->Disconnect();
//   }
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/devices/device_link.h"

namespace qvn::devices {

/// Each method is that of WindowsCe; see windows_ce.h for results, errors and what a failure leaves behind. Objects
/// with the same link share its session.
class QvnMobile final : public Object {
 public:
  /// Without a link Connect gives False and the others fail.
  explicit QvnMobile(DeviceLinkPtr link = nullptr);

  /// A Boolean: whether the session is up. Waits ten seconds at the most.
  [[nodiscard]] Variant Connect() const;
  bool CopyFileFromPocket(std::string_view SourceFile, std::string_view DestinyFile) const;
  bool CopyFileToPocket(std::string_view SourceFile, std::string_view DestinyFile) const;
  void Disconnect() const;
  [[nodiscard]] std::string Version() const;
  [[nodiscard]] bool IsConnected() const;
  bool DeleteFileFromPocket(std::string_view path) const;
  [[nodiscard]] bool ExistFileOnPocket(std::string_view path) const;
  bool ceCommand(std::string_view strProcess, std::string_view strParameters) const;

 private:
  DeviceLinkPtr link_;
};

}  // namespace qvn::devices
