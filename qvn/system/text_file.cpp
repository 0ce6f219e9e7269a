#include "qvn/system/text_file.h"

#include <string>

#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"
#include "qvn/system/file_writer.h"

namespace qvn::system {
namespace {

void writeLine(const Variant& fileName, const Variant& text, WriteMode mode) {
  try {
    writeFile(hostPath(fileName.toText()), text.toText() + "\r\n", mode);
  } catch (const RuntimeError&) {
    return;
  }
}

}  // namespace

void OutLine(const Variant& fileName, const Variant& text) { writeLine(fileName, text, WriteMode::Append); }

void OutFile(const Variant& fileName, const Variant& text) { OutLine(fileName, text); }

void Out(const Variant& fileName, const Variant& text) { writeLine(fileName, text, WriteMode::Replace); }

}  // namespace qvn::system
