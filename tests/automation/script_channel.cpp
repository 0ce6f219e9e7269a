#include "tests/automation/script_channel.h"

#include <gtest/gtest.h>

#include <cctype>
#include <utility>

namespace qvn::test {
namespace {

void replaceAll(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

// "..." in the pattern stands for any text.
bool matches(std::string_view pattern, std::string_view text) {
  const std::size_t gap = pattern.find("...");
  if (gap == std::string_view::npos) return pattern == text;
  if (!text.starts_with(pattern.substr(0, gap))) return false;
  pattern.remove_prefix(gap + 3);
  text.remove_prefix(gap);
  for (std::size_t start = 0; start <= text.size(); ++start) {
    if (matches(pattern, text.substr(start))) return true;
  }
  return false;
}

}  // namespace

ScriptChannel::ScriptChannel(const std::string& file, std::string folder) : folder_(std::move(folder)) {
  std::ifstream in(file);
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (!line.empty() && line.front() != '#') steps_.push_back({number, line});
  }
}

automation::LineChannel::Received ScriptChannel::read(std::string& line) {
  if (next_ == steps_.size()) return Received::End;
  const Step& step = steps_[next_++];
  if (step.text.starts_with("@ ")) {
    line = substituted(step.text.substr(2));
    return Received::Line;
  }
  const std::size_t blank = step.text.find(' ');
  const std::string name = step.text.substr(0, blank);
  if (std::isalpha(static_cast<unsigned char>(name.front())) == 0) {
    ADD_FAILURE() << "line " << step.line << " is still expected: " << step.text;
    return Received::End;
  }
  methods_.insert(name);
  line = R"({"id":)" + std::to_string(++id_) + R"(,"op":")" + name + R"(","in":)" +
         substituted(step.text.substr(blank + 1)) + "}";
  return Received::Line;
}

void ScriptChannel::write(std::string_view line) {
  ASSERT_LT(next_, steps_.size()) << line;
  const Step& step = steps_[next_++];
  SCOPED_TRACE("line " + std::to_string(step.line) + ": " + step.text);
  if (step.text.starts_with("= $")) {
    EXPECT_TRUE(bindResult(step.text.substr(2), line)) << line;
    return;
  }
  const std::string expected = expectedOf(substituted(step.text));
  EXPECT_TRUE(matches(expected, line)) << "expected " << expected << "\nanswered " << line;
}

std::string ScriptChannel::substituted(std::string text) const {
  // A name that begins like another one stands behind it in the map, and so goes first.
  for (auto object = objects_.rbegin(); object != objects_.rend(); ++object) {
    replaceAll(text, object->first, object->second);
  }
  replaceAll(text, "{dir}", folder_);
  return text;
}

bool ScriptChannel::bindResult(const std::string& name, std::string_view line) {
  const std::string head = R"({"id":)" + std::to_string(id_) + R"(,"out":{"result":)";
  constexpr std::string_view kTail = "}}";
  if (!line.starts_with(head + R"({"object":)") || !line.ends_with(kTail)) return false;
  line.remove_prefix(head.size());
  line.remove_suffix(kTail.size());
  objects_[name] = line;
  return true;
}

std::string ScriptChannel::expectedOf(const std::string& text) const {
  if (text.starts_with("~ ")) return text.substr(2);
  const std::string head = R"({"id":)" + std::to_string(id_);
  if (text.starts_with("! ")) return head + R"(,"error":{"number":)" + text.substr(2) + R"(,"description":"...)";
  return head + R"(,"out":)" + (text == "=" ? "{}" : text.substr(2)) + "}";
}

}  // namespace qvn::test
