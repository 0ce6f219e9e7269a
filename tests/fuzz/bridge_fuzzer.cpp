// Any lines sent to the bridge: each is answered, with JSON that reads back, and nothing but the lines' own texts and
// values is touched. Methods that reach files, commands, databases and the clock are left out, and those whose result
// may be as long as a number says.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "qvn/automation/bridge.h"
#include "qvn/automation/parse_json.h"

namespace {

using namespace qvn::automation;  // NOLINT(google-build-using-namespace): one file about one folder

class FuzzedLines final : public LineChannel {
 public:
  explicit FuzzedLines(std::string_view input) : rest_(input) {}

  Received read(std::string& line) override {
    if (rest_.empty()) return Received::End;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    constexpr std::size_t kLongest = 2000;
    return line.size() > kLongest ? Received::TooLong : Received::Line;
  }
  void write(std::string_view line) override {
    const Json answer = parseJson(line);
    const bool isAnswer =
        answer.find("id") != nullptr && (answer.find("out") == nullptr) != (answer.find("error") == nullptr);
    if (!isAnswer && answer.find("event") == nullptr) std::abort();
  }
  void flush() override {}

 private:
  std::string_view rest_;
};

const Method* harmless(std::string_view name) {
  static constexpr auto kClasses =
      std::to_array<std::string_view>({"Collection.", "Ambiente.", "TextBox.", "WsField.", "TextData.", "Query.",
                                       "StatementBuilder.", "PendingStatements"});
  static constexpr std::string_view kMethods =
      " Release Val2 Formato FormatoDecimal Fn Max cNull clEmpty clAt At ReplaceString Cambia Inserta"
      " DataSeparator Separador WsFields newData NewTextData ToNumber UEspecial AplicaFormato PonLetra"
      " Mes Dia Ud ElSiguienteMes DateTimeSerial Encrypta Decrypta StdDev ShellSortAny Question"
      " Question2 MyInputBox CuadroDeMensajes TecladoVirtualV2 SetSessionValue GetSessionValue FechaSQL"
      " flushQueryCollection NivelDeCuenta ";
  const bool isHarmless =
      std::ranges::any_of(kClasses, [&](std::string_view head) { return name.starts_with(head); }) ||
      kMethods.find(" " + std::string(name) + " ") != std::string_view::npos;
  return isHarmless ? findMethod(name) : nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedLines lines(std::string_view(reinterpret_cast<const char*>(data), size));
  Bridge(lines, harmless).run();
  return 0;
}
