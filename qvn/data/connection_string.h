// Connection strings: "name=value;" lists whose first part may be a bare driver name.
//
//   ConnectionString text("MySQL;SERVER=localhost;DATABASE=tienda;UID=pos;PWD='a;b'");
//   text.driverName() == "MySQL";  text.value({"DATABASE", "INITIAL CATALOG"}) == "tienda"
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvn::data {

class ConnectionString {
 public:
  /// Values may stand in double quotes, single quotes or braces; the closing mark twice stands for itself. Names are
  /// compared without regard to case, blanks around names and unquoted values are dropped, and the last of two equal
  /// names counts. Throws ProviderError kBadConnectionString for an unclosed quote, a part without a name, or a part
  /// without "=" that is not the first. The error text does not repeat any value.
  explicit ConnectionString(std::string_view text);

  /// Value of the first of `names` that is present.
  [[nodiscard]] std::optional<std::string> value(std::initializer_list<std::string_view> names) const;

  /// What chooses the driver: the bare first part, else the value of Provider, else of Driver; else "".
  [[nodiscard]] const std::string& driverName() const { return driverName_; }

  struct Part {
    std::string name;
    std::string value;
  };
  /// All of them in the order of the text, without a bare first one.
  [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }

 private:
  std::vector<Part> parts_;
  std::string driverName_;
};

/// `text` with the values of passwords replaced by "***", for people to read. A text that is not a connection string
/// is hidden from its first password-like word on.
std::string withoutPassword(std::string_view text);

}  // namespace qvn::data
