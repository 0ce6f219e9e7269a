// The questions that the library asks the person at the station. Each call opens one modal dialog, waits for the answer
// and gives it; nothing of a dialog outlives its call. Adapters: a terminal, scripted answers, windows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "qvn/host/ambiente.h"
#include "qvn/host/message_box.h"

namespace qvn::dialogs {

/// Texts are shown as they are: markup and control characters in them mean nothing. A failure to show reaches the
/// caller.
class Dialogs : public host::MessageBox {
 public:
  /// Shows another text in a progress dialog.
  using Show = std::function<void(std::string_view text)>;
  using Work = std::function<void(const Show& show)>;

  /// A text with an icon, and one without.
  virtual void message(std::string_view text) = 0;
  virtual void alert(std::string_view text) = 0;

  /// The number of the button that was pressed, counted from 1: "Si", "No"; 0 when the dialog was closed in another
  /// way. The focus is on button `focused`.
  virtual std::int16_t question(std::string_view text, std::int16_t focused) = 0;
  /// Likewise: "Si", "Si a todo", "No", "Cancelar".
  virtual std::int16_t choice(std::string_view text, std::int16_t focused) = 0;

  /// One line that the person types; nothing when it was not accepted.
  virtual std::optional<std::string> entry(std::string_view text) = 0;
  /// The same without showing what is typed.
  virtual std::optional<std::string> password(std::string_view text, const host::AmbientePtr& ambiente) = 0;

  /// Lets the person edit a text with an on-screen keyboard; the text as it was when that is cancelled.
  virtual std::string keyboard(std::string_view text) = 0;

  /// A text without buttons that stays while `work` runs, and goes when it ends. `work` begins once the text is there,
  /// and may put others in its place, each of which is seen before the work goes on. What `work` throws reaches the
  /// caller.
  virtual void progress(std::string_view text, const Work& work) = 0;
};
using DialogsPtr = std::shared_ptr<Dialogs>;

}  // namespace qvn::dialogs
