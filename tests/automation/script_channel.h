// A host that follows a script: it sends the script's requests and answers, and holds what comes back against it.
#pragma once

#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/automation/channel.h"

namespace qvn::test {

/// The lines of a script are explained at the top of every_method.txt.
class ScriptChannel final : public automation::LineChannel {
 public:
  ScriptChannel(const std::string& file, std::string folder);

  Received read(std::string& line) override;
  void write(std::string_view line) override;
  void flush() override {}

  /// The methods that were asked for.
  [[nodiscard]] const std::set<std::string>& methods() const { return methods_; }

 private:
  struct Step {
    int line;  ///< of the file
    std::string text;
  };

  [[nodiscard]] std::string substituted(std::string text) const;
  bool bindResult(const std::string& name, std::string_view line);
  [[nodiscard]] std::string expectedOf(const std::string& text) const;

  std::vector<Step> steps_;
  std::size_t next_ = 0;
  int id_ = 0;
  std::string folder_;
  std::map<std::string, std::string> objects_;  // "$name" to {"object":N}
  std::set<std::string> methods_;
};

}  // namespace qvn::test
