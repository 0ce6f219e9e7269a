#include "qvn/devices/qvn_mobile.h"

#include <utility>

#include "qvn/devices/windows_ce.h"

namespace qvn::devices {

QvnMobile::QvnMobile(DeviceLinkPtr link) : link_(link ? std::move(link) : noDeviceLink()) {}

Variant QvnMobile::Connect() const { return WindowsCe(*link_).Connect(); }

bool QvnMobile::CopyFileFromPocket(std::string_view SourceFile, std::string_view DestinyFile) const {
  return WindowsCe(*link_).CopyFileFromPocket(SourceFile, DestinyFile);
}

bool QvnMobile::CopyFileToPocket(std::string_view SourceFile, std::string_view DestinyFile) const {
  return WindowsCe(*link_).CopyFileToPocket(SourceFile, DestinyFile);
}

void QvnMobile::Disconnect() const { WindowsCe(*link_).Disconnect(); }

std::string QvnMobile::Version() const { return WindowsCe(*link_).Version(); }

bool QvnMobile::IsConnected() const { return WindowsCe(*link_).IsConnected(); }

bool QvnMobile::DeleteFileFromPocket(std::string_view path) const {
  return WindowsCe(*link_).DeleteFileFromPocket(path);
}

bool QvnMobile::ExistFileOnPocket(std::string_view path) const { return WindowsCe(*link_).ExistFileOnPocket(path); }

bool QvnMobile::ceCommand(std::string_view strProcess, std::string_view strParameters) const {
  return WindowsCe(*link_).ceCommand(strProcess, strParameters);
}

}  // namespace qvn::devices
