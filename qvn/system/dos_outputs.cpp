#include "qvn/system/dos_outputs.h"

#include <array>
#include <utility>

#include "qvn/system/child_process.h"
#include "qvn/system/command_line.h"
#include "qvn/system/text_file.h"

namespace qvn::system {
namespace {

constexpr std::size_t kPieceSize = 256;
constexpr std::int32_t kCriticalIcon = 16;

// Hands over each piece of a command's output and, at the end, an empty one.
template <typename Take>
void readPieces(CapturedProcess& command, Take take) {
  std::array<char, kPieceSize> buffer;
  std::size_t size = 0;
  do {
    size = command.read(buffer);
    take(std::string_view(buffer.data(), size));
  } while (size > 0);
}

std::string noPipeText(const CapturedProcess& command) {
  return "CreatePipe failed. Error: " + std::to_string(command.systemError());
}

}  // namespace

DOSOutputs::DOSOutputs(std::shared_ptr<host::MessageBox> messages) : messages_(std::move(messages)) {}

std::string DOSOutputs::ExecuteCommand(std::string_view line) {
  if (!line.empty()) commandLine_ = line;
  const auto fail = [this](std::string_view text) {
    messages_->show(text, kCriticalIcon, {});
    return std::string();
  };
  if (commandLine_.empty()) return fail("Command Line empty");
  CapturedProcess command(splitCommandLine(commandLine_));
  if (command.outcome() == StartOutcome::NoPipe) return fail(noPipeText(command));
  if (command.outcome() != StartOutcome::Started) return fail("File or command not found");
  outputs_.clear();
  readPieces(command, [this](std::string_view piece) {
    outputs_.append(piece);
    if (receiveOutputs_) receiveOutputs_(piece);
  });
  return outputs_;
}

bool DOSOutputs::ExecuteToFile(std::string_view line, const Variant& fileName, std::string& strError) {
  if (!line.empty()) commandLine_ = line;
  if (commandLine_.empty()) {
    strError = "Linea de comandos vacia";
    return false;
  }
  CapturedProcess command(splitCommandLine(commandLine_));
  if (command.outcome() == StartOutcome::NoPipe) {
    strError = noPipeText(command);
  } else if (command.outcome() != StartOutcome::Started) {
    strError = "Archivo o comando equivocados";
  } else {
    outputs_.clear();
    readPieces(command, [&](std::string_view piece) { system::OutLine(fileName, piece); });
  }
  return true;
}

void DOSOutputs::OutLine(const Variant& fileName, const Variant& text) const { system::OutLine(fileName, text); }

void CommandToFile(std::string_view commandLine, const Variant& fileName) {
  std::string ignored;
  DOSOutputs(nullptr).ExecuteToFile(commandLine, fileName, ignored);
}

}  // namespace qvn::system
