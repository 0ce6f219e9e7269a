// Drives the library for a host in another language: one request per line, one answer per line, in order.
//
//   {"id":1,"op":"PonLetra","in":{"Numero":1234.56,"Leyenda":"M.N.","bolDecimales":true,"strMoneda":"PESOS"}}
//   {"id":1,"out":{"result":"UN MIL ...","Numero":0,"Leyenda":"M.N."}}
#pragma once

#include <memory>

#include "qvn/automation/channel.h"
#include "qvn/automation/sections.h"
#include "qvn/automation/session.h"

namespace qvn::automation {

/// Finds the method of a name; see findMethod.
using MethodFinder = const Method* (*)(std::string_view name);

/// A library, and the objects that its host holds. docs/bridge.md explains the lines.
class Bridge {
 public:
  /// `channel` must outlive the object. Requests may call the methods that `finder` finds.
  explicit Bridge(LineChannel& channel, MethodFinder finder = findMethod);

  /// Answers requests until the input ends. A failing request is answered with its error, and the next one is taken.
  /// Throws RuntimeError 57 when the channel fails.
  void run();

 private:
  // The answer of one line.
  [[nodiscard]] Json answerTo(std::string_view line);
  [[nodiscard]] Json resultOf(const Json& request);

  Conversation conversation_;
  ObjectTable objects_;
  dialogs::DialogsPtr dialogs_;
  LumLibreria library_;
  Session session_;
  MethodFinder finder_;
};

}  // namespace qvn::automation
