// Any bytes as a connection string: parsing ends in a value or in a ProviderError, and what people are shown never
// holds a value that only the password has.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "qvn/data/connection_string.h"
#include "qvn/data/provider_error.h"

namespace {

using qvn::data::ConnectionString;

void require(bool holds) {
  if (!holds) std::abort();
}

void parse(std::string_view text) {
  try {
    const ConnectionString parsed(text);
    (void)parsed.value({"PWD", "PASSWORD"});
    (void)parsed.value({parsed.driverName()});
  } catch (const qvn::data::ProviderError& error) {
    require(error.number() == qvn::data::provider_number::kBadConnectionString);
  }
}

// A value in quotes, whatever it holds, comes back as it was and is never shown.
void quoteAndParse(std::string_view value) {
  const std::string secret = "s3cr3t" + std::string(value);
  std::string quoted = "\"";
  for (const char c : secret) quoted.append(c == '"' ? 2 : 1, c);
  quoted.push_back('"');
  const std::string text = "MySQL;SERVER=a;PWD=" + quoted + ";UID=u";
  const ConnectionString parsed(text);
  require(parsed.value({"PWD"}) == secret);
  require(parsed.value({"UID"}) == "u");
  require(qvn::data::withoutPassword(text).find("s3cr3t") == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  parse(text);
  require(qvn::data::withoutPassword(text).size() <= text.size() * 4 + 8);
  quoteAndParse(text);
  return 0;
}
