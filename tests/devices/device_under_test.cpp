#include "tests/devices/device_under_test.h"

#include "qvn/devices/folder/folder_link.h"
#include "qvn/devices/rapi/rapi_link.h"
#include "qvn/devices/wide_text.h"
#include "tests/devices/pocket.h"
#include "tests/devices/scripted_device.h"

namespace qvn::test {
namespace {

class ScriptedUnderTest final : public DeviceUnderTest {
 public:
  [[nodiscard]] devices::DeviceLink& link() override { return device_; }
  void put(const std::string& name, const std::string& bytes) override { device_.files[pathOf(name)] = bytes; }
  [[nodiscard]] std::optional<std::string> get(const std::string& name) override {
    const auto found = device_.files.find(pathOf(name));
    return found == device_.files.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  static std::u16string pathOf(const std::string& name) { return u"\\My Documents\\" + devices::toWide(name); }
  ScriptedDevice device_;
};

template <typename Link>
class FilesUnderTest final : public DeviceUnderTest {
 public:
  explicit FilesUnderTest(std::unique_ptr<Pocket> pocket, const std::string& where)
      : pocket_(std::move(pocket)), link_(where) {}
  [[nodiscard]] devices::DeviceLink& link() override { return link_; }
  void put(const std::string& name, const std::string& bytes) override { putBytes(pocket_->file(name), bytes); }
  [[nodiscard]] std::optional<std::string> get(const std::string& name) override {
    const std::filesystem::path file = pocket_->file(name);
    return std::filesystem::exists(file) ? std::optional(bytesOf(file)) : std::nullopt;
  }

 private:
  std::unique_ptr<Pocket> pocket_;
  Link link_;
};

}  // namespace

std::unique_ptr<DeviceUnderTest> newScriptedDevice() { return std::make_unique<ScriptedUnderTest>(); }

std::unique_ptr<DeviceUnderTest> newFolderDevice() {
  auto pocket = std::make_unique<Pocket>();
  const std::string root = pocket->file("").parent_path().parent_path().string();
  return std::make_unique<FilesUnderTest<devices::FolderLink>>(std::move(pocket), root);
}

std::unique_ptr<DeviceUnderTest> newLibraryDevice() {
  return std::make_unique<FilesUnderTest<devices::RapiLink>>(std::make_unique<Pocket>(), Pocket::library());
}

}  // namespace qvn::test
