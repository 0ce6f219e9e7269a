#include <gtest/gtest.h>

#include <string>

#include "qvn/barcode/code128.h"
#include "qvn/barcode/code39.h"
#include "qvn/barcode/ean.h"
#include "tests/support/error_of.h"

namespace qvn::barcode {
namespace {

const std::string kStartB = "11010010000";
const std::string kStartC = "11010011100";
const std::string kCodeC = "10111011110";
const std::string kA = "10100011000";
const std::string kB = "10001011000";
const std::string k12 = "10110011100";
const std::string k34 = "10001011000";  // set C value 34 is set B's "B"
const std::string k56 = "11100010110";
const std::string kStop = "1100011101011";

std::string code128(std::string_view caption, TrailingDigits trailing = TrailingDigits::FourOrMore) {
  ModuleString symbol;
  encodeCode128(caption, trailing, symbol);
  return symbol.text();
}

TEST(Code128, SymbolsOfTheCaption) {
  // 104 + 33*1 + 34*2 = 205, check 102
  EXPECT_EQ(code128("AB12"), kStartB + kA + kB + "11110101110" + kStop);
  // 105 + 12 + 68 + 168 = 353, check 44
  EXPECT_EQ(code128("123456"), kStartC + k12 + k34 + k56 + "10001101110" + kStop);
  // 104 + 33 + 68 + 99*3 + 12*4 + 34*5 = 720, check 102
  EXPECT_EQ(code128("AB1234"), kStartB + kA + kB + kCodeC + k12 + k34 + "11110101110" + kStop);
  // 104 + 17*1 + 99*2 + 23*3 + 45*4 = 568, check 53
  EXPECT_EQ(code128("12345"), kStartB + "10011100110" + kCodeC + "11101101110" + "10111011000" + "11011101110" + kStop);
  EXPECT_EQ(code128(""), "11011001100" + kStop);
  EXPECT_EQ(code128("123"), "11011001100" + kStop) << "digits at the end are left out below four";
  EXPECT_EQ(code128("AB12", TrailingDigits::All).size(), 11U * 6 + 13);
}

TEST(Code128, CharacterOutsideSetBFailsAfterPartWasDrawn) {
  for (const std::string_view caption : {"A\x1f", "A\x7f", "Añ"}) {
    ModuleString symbol;
    EXPECT_EQ(test::errorNumber([&] { encodeCode128(caption, TrailingDigits::FourOrMore, symbol); }), 9);
    EXPECT_EQ(symbol.text(), kStartB + kA);
  }
  ModuleString symbol;
  EXPECT_EQ(test::errorNumber([&] { encodeCode128("\t", TrailingDigits::FourOrMore, symbol); }), 9);
  EXPECT_EQ(symbol.text(), kStartB);
}

TEST(Code128, EstimatedSymbols) {
  struct Row {
    std::string_view caption;
    std::int16_t expected;
  };
  static constexpr Row kRows[] = {{"", 0},       {"123", 0}, {"1234", 2}, {"12345", 4}, {"AB12", 2},
                                  {"AB1234", 5}, {"1A", 1},  {"12AB", 3}, {"A12345", 6}};
  for (const Row& row : kRows) {
    EXPECT_EQ(estimatedSymbols(row.caption), row.expected) << row.caption;
  }
}

TEST(Barcodes, CountsBeyond16BitsOverflow) {
  for (const char character : {'A', '7'}) {
    const std::string caption(40000, character);
    EXPECT_EQ(test::errorNumber([&] { estimatedSymbols(caption); }), 6);
    EXPECT_EQ(test::errorNumber([&] { code128(caption); }), 6);
    ModuleString symbol;
    EXPECT_EQ(test::errorNumber([&] { encodeCode39(caption, WithCheckCharacter::No, symbol); }), 6);
  }
}

TEST(Code39, StartCaptionCheckAndStop) {
  const std::string star = "1001011011010";
  ModuleString plain;
  encodeCode39("0*", WithCheckCharacter::No, plain);
  EXPECT_EQ(plain.text(), star + "1010011011010" + star + star);
  ModuleString checked;
  encodeCode39("A*", WithCheckCharacter::Yes, checked);  // 10 + 43 = 53, check 10
  EXPECT_EQ(checked.text(), star + "1101010010110" + star + "1101010010110" + star);
}

TEST(Captions, Faults) {
  using Fault = std::optional<CaptionFault> (*)(std::string_view) noexcept;
  struct Row {
    Fault fault;
    std::string_view caption, message, title;
  };
  static constexpr Row kRows[] = {
      {code39Fault, "abc", "An Invalid Character Found in Bar Text", "Bar 39"},
      {code39Fault, "AÑO", "An Invalid Character Found in Bar Text", "Bar 39"},
      {ean13Fault, "4006381333931", "Should be 12 Digit Numbers", "EAN-13"},
      {ean13Fault, "40063813339X", "An Invalid Character Found in Bar Text", "EAN-13"},
      {ean13Fault, "40063813339ñ", "An Invalid Character Found in Bar Text", "EAN-13"},
      {ean8Fault, "", "Should be 7 Digit Numbers", "EAN-8"},
      {ean8Fault, "963850 ", "An Invalid Character Found in Bar Text", "EAN-8"},
  };
  for (const Row& row : kRows) {
    const auto fault = row.fault(row.caption);
    ASSERT_TRUE(fault) << row.caption;
    EXPECT_EQ(fault->message, row.message) << row.caption;
    EXPECT_EQ(fault->title, row.title) << row.caption;
  }
  EXPECT_FALSE(code39Fault("PLU-1. $/+%*") || ean13Fault("400638133393") || ean8Fault("9638507"));
}

TEST(Ean, HostsCheckDigit) {
  EXPECT_EQ(getEAN13ChekDigit("400638133393"), 1);
  EXPECT_EQ(getEAN13ChekDigit("000000000000"), 10);
  EXPECT_EQ(getEAN13ChekDigit("00000000000"), -1);
  EXPECT_EQ(getEAN13ChekDigit("4006381333939"), 1) << "characters after the twelfth do not count";
  EXPECT_EQ(getEAN13ChekDigit("ñ00000000001"), 7);
}

TEST(Ean, Symbols) {
  ModuleString ean13;
  encodeEan13("400638133393", ean13);  // 4 reads OEOOEE: 0 A, 0 B, 6 A, 3 A, 8 B, 1 B
  EXPECT_EQ(ean13.text(),
            "101"
            "0001101"
            "0100111"
            "0101111"
            "0111101"
            "0001001"
            "0110011"
            "01010"
            "1000010"
            "1000010"
            "1000010"
            "1110100"
            "1000010"
            "1100110"
            "101");
  ModuleString ean8;
  encodeEan8("9638507", ean8);  // check digit 4
  EXPECT_EQ(ean8.text(),
            "101"
            "0001011"
            "0101111"
            "0111101"
            "0110111"
            "01010"
            "1001110"
            "1110010"
            "1000100"
            "1011100"
            "101");
}

}  // namespace
}  // namespace qvn::barcode
