#include "qvn/barcode/code128.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "qvn/barcode/integer16.h"

namespace qvn::barcode {
namespace {

constexpr std::size_t kModules = 11;
constexpr std::string_view kStop = "1100011101011";
constexpr int kCodeC = 99;
constexpr int kStartB = 104;
constexpr int kStartC = 105;

// Widths bar, space, bar, space, bar, space of each value. Source: ISO/IEC 15417, table 1.
// clang-format off
constexpr auto kWidths = std::to_array<std::string_view>({
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213",  // 0
    "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132",  // 10
    "221231", "213212", "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",  // 20
    "212123", "212321", "232121", "111323", "131123", "131321", "112313", "132113", "132311", "211313",  // 30
    "231113", "231311", "112133", "112331", "132131", "113123", "113321", "133121", "313121", "211331",  // 40
    "231131", "213113", "213311", "213131", "311123", "311321", "331121", "312113", "312311", "332111",  // 50
    "314111", "221411", "431111", "111224", "111422", "121124", "121421", "141122", "141221", "112214",  // 60
    "112412", "122114", "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111",  // 70
    "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",  // 80
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311", "113141",  // 90
    "114131", "311141", "411131", "211412", "211214", "211232",                                          // 100
});
// clang-format on
static_assert(kWidths.size() == 106);
static_assert(std::ranges::all_of(kWidths, [](std::string_view widths) {
  int modules = 0;
  int dark = 0;
  for (std::size_t element = 0; element < widths.size(); ++element) {
    modules += widths[element] - '0';
    dark += element % 2 == 0 ? widths[element] - '0' : 0;
  }
  return widths.size() == 6 && modules == 11 && dark % 2 == 0;  // the standard's own parity
}));
constexpr auto kSortedWidths = [] {
  auto widths = kWidths;
  std::ranges::sort(widths);
  return widths;
}();
static_assert(std::ranges::adjacent_find(kSortedWidths) == kSortedWidths.end());

using Pattern = std::array<char, kModules>;

constexpr auto kPatterns = [] {
  std::array<Pattern, kWidths.size()> patterns{};
  for (std::size_t value = 0; value < kWidths.size(); ++value) {
    std::size_t module = 0;
    for (std::size_t element = 0; element < 6; ++element) {
      for (char width = kWidths[value][element]; width > '0'; --width) {
        patterns[value][module++] = element % 2 == 0 ? '1' : '0';
      }
    }
  }
  return patterns;
}();

constexpr bool isDigit(char character) noexcept { return character >= '0' && character <= '9'; }

class Encoder {
 public:
  explicit Encoder(ModuleSink& sink) : sink_(sink) {}

  void encodeSetB(std::string_view characters) {
    for (const char character : characters) {
      weight_ = toInteger16(weight_ + 1);
      start(kStartB);
      if (character < ' ' || character > '~') {
        throw RuntimeError(error_number::kSubscriptOutOfRange);
      }
      const int value = character - ' ';
      checkSum_ += std::int64_t{value} * weight_;
      draw(value);
    }
  }

  /// `digits` are even in number and end the caption.
  void encodeSetC(std::string_view digits) {
    if (started_) {
      draw(kCodeC);
      weigh(kCodeC);
    }
    start(kStartC);
    for (std::size_t at = 0; at < digits.size(); at += 2) {
      const int value = (digits[at] - '0') * 10 + (digits[at + 1] - '0');
      draw(value);
      weigh(value);
    }
  }

  void finish() {
    draw(static_cast<int>(checkSum_ % 103));
    sink_.append(kStop, BarLength::Data);
  }

 private:
  void start(int value) {
    if (started_) {
      return;
    }
    started_ = true;
    checkSum_ += value;
    draw(value);
  }
  void weigh(int value) {
    weight_ = toInteger16(weight_ + 1);
    checkSum_ += std::int64_t{value} * weight_;
  }
  void draw(int value) {
    const Pattern& pattern = kPatterns[static_cast<std::size_t>(value)];
    sink_.append({pattern.data(), pattern.size()}, BarLength::Data);
  }

  ModuleSink& sink_;
  bool started_ = false;
  std::int16_t weight_ = 0;
  std::int64_t checkSum_ = 0;
};

}  // namespace

std::int16_t estimatedSymbols(std::string_view caption) {
  std::int16_t total = 0;
  std::int16_t run = 0;
  for (const char character : caption) {
    if (isDigit(character)) {
      run = toInteger16(run + 1);
    } else {
      total = toInteger16(total + (run > 0 ? run : 1));
      run = 0;
    }
  }
  if (run < 4) {
    return total;
  }
  const int codeSwitch = total != 0 ? 1 : 0;
  const int oddDigit = run % 2 != 0 ? 2 : 0;
  return toInteger16(total + codeSwitch + oddDigit + run / 2);
}

void encodeCode128(std::string_view caption, TrailingDigits trailing, ModuleSink& sink) {
  Encoder encoder(sink);
  std::int16_t run = 0;
  std::size_t runStart = 0;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    if (isDigit(caption[at])) {
      run = toInteger16(run + 1);
      continue;
    }
    encoder.encodeSetB(caption.substr(runStart, at + 1 - runStart));
    runStart = at + 1;
    run = 0;
  }
  std::string_view digits = caption.substr(runStart);
  if (run >= 4) {
    encoder.encodeSetB(digits.substr(0, digits.size() % 2));
    digits.remove_prefix(digits.size() % 2);
    encoder.encodeSetC(digits);
  } else if (trailing == TrailingDigits::All) {
    encoder.encodeSetB(digits);
  }
  encoder.finish();
}

}  // namespace qvn::barcode
