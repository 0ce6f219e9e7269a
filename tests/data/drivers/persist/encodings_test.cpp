// Saved recordsets in the encodings that other writers use.
#include <gtest/gtest.h>

#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/persist/persist_driver.h"
#include "qvn/data/provider_error.h"
#include "qvn/data/recordset.h"
#include "tests/support/error_of.h"
#include "tests/support/scratch_folder.h"

namespace qvn::data {
namespace {

enum class Units { OneByte, Utf8, Utf16Little, Utf16Big };

// Each byte of `text` is a character of ISO 8859-1.
std::string encoded(std::string_view text, Units units) {
  std::string bytes;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (units == Units::Utf16Big) bytes.push_back('\0');
    if (units == Units::Utf8 && code >= 0x80) {
      bytes.push_back(static_cast<char>(0xC0 + code / 64));
      bytes.push_back(static_cast<char>(0x80 + code % 64));
    } else {
      bytes.push_back(c);
    }
    if (units == Units::Utf16Little) bytes.push_back('\0');
  }
  return bytes;
}

constexpr std::string_view kRecordset =
    "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'"
    " xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'><s:Schema id='RowsetSchema'>"
    "<s:ElementType name='row'><s:AttributeType name='a\xF1o' dt:type='string'/></s:ElementType></s:Schema>"
    "<rs:data><z:row a\xF1o='Mu\xF1oz \xA9'/></rs:data></xml>";

struct Row {
  const char* why;
  const char* mark;
  const char* start;
  Units units;
  bool isRead;
};

TEST(SavedFile, IsReadInTheEncodingOfItsWriter) {
  registerDriver(persistDriver());
  constexpr Row kRows[] = {
      {"UTF-8 without saying so", "", "", Units::Utf8, true},
      {"UTF-8", "", "<?xml version='1.0' encoding='utf-8'?>", Units::Utf8, true},
      {"UTF-8 with its mark", "\xEF\xBB\xBF", "", Units::Utf8, true},
      {"UTF-16", "\xFF\xFE", "", Units::Utf16Little, true},
      {"UTF-16, said too", "\xFF\xFE", "<?xml version='1.0' encoding='UTF-16'?>", Units::Utf16Little, true},
      {"UTF-16 from the other end", "\xFE\xFF", "", Units::Utf16Big, true},
      {"Windows", "", "<?xml version='1.0' encoding='Windows-1252'?>", Units::OneByte, true},
      {"Windows in small letters", "", "<?xml version='1.0' encoding='windows-1252'?>", Units::OneByte, true},
      {"Latin 1", "", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>", Units::OneByte, true},
      {"another one", "", "<?xml version='1.0' encoding='UTF-7'?>", Units::OneByte, false},
      {"one byte without saying so", "", "", Units::OneByte, false},
      {"a document type", "", "<!DOCTYPE xml>", Units::Utf8, false},
      {"a document type in UTF-16", "\xFF\xFE", "<!DOCTYPE xml>", Units::Utf16Little, false},
      {"a document type from the other end", "\xFE\xFF", "<!DOCTYPE xml>", Units::Utf16Big, false},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const test::ScratchFolder folder;
    folder.put(row.mark + encoded(row.start, row.units) + encoded(kRecordset, row.units));
    Recordset rows;
    const std::int32_t number = test::errorNumber([&] { rows.Open(folder.path(), "Provider=MSPersist;"); });
    ASSERT_EQ(number, row.isRead ? 0 : provider_number::kUnspecified);
    EXPECT_EQ(row.isRead ? rows.Fields("año").Value().toText() : "Muñoz ©", "Muñoz ©");
  }
}

}  // namespace
}  // namespace qvn::data
