#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(NamedFormat, LaysOutNumbers) {
  const test::PatternRows rows = {{1234.5, "General Number", "1234.5"}, {1.5e20, "General Number", "1.5E+20"},
                                  {1234.567, "Fixed", "1234.57"},       {1234.567, "Standard", "1,234.57"},
                                  {0.1234, "Percent", "12.34%"},        {1234.5, "Scientific", "1.23E+03"},
                                  {1234.5, "sTANDARD", "1,234.50"},     {5, "Fixed ", "Fixe4 "}};
  expectFormatted("en_US.UTF-8", rows);
}

TEST(NamedFormat, LaysOutAmountsByTheLocale) {
  expectFormatted("en_US.UTF-8", {{1234.5, "Currency", "$1,234.50"},
                                  {-1234.5, "Currency", "($1,234.50)"},
                                  {-0.004, "Currency", "$0.00"},
                                  {*Decimal::fromText("-0.005"), "Currency", "($0.01)"}});
  expectFormatted("es_MX.UTF-8", {{1234.5, "Currency", "$ 1,234.50"}});
  expectFormatted("es_ES.UTF-8", {{-1234.5, "Currency", "(1.234,50 €)"}});
  expectFormatted("C", {{1234.5, "currency", "1,234.50"}});
}

TEST(NamedFormat, ChoosesWords) {
  const test::PatternRows rows = {
      {-1, "Yes/No", "Sí"},           {0, "Yes/No", "No"},         {0.3, "True/False", "Verdadero"},
      {false, "True/False", "Falso"}, {"7", "On/Off", "Activado"}, {Empty{}, "on/off", "Desactivado"},
      {Null{}, "Yes/No", ""},         {"abc", "Yes/No", "abc"}};
  expectFormatted("es_MX.UTF-8", rows);
  expectFormatted("de_DE.UTF-8", {{true, "Yes/No", "Yes"}, {0, "True/False", "False"}, {1, "On/Off", "On"}});
}

TEST(NamedFormat, LaysOutDates) {
  const Date evening = Date::fromCivil(2012, 3, 7, {21, 5, 9});
  // clang-format off
  const test::PatternRows rows = {
      {evening, "General Date", "07/03/2012 21:05:09"}, {evening, "Long Date", "miércoles, 7 de marzo de 2012"},
      {evening, "Medium Date", "07-mar-12"}, {evening, "Short Date", "07/03/2012"},
      {evening, "Long Time", "21:05:09"}, {evening, "Medium Time", "09:05 PM"}, {evening, "SHORT TIME", "21:05"},
      {"07/03/2012", "Medium Date", "07-mar-12"}, {40975, "Short Date", "07/03/2012"},
  };
  // clang-format on
  expectFormatted("es_MX.UTF-8", rows);
}

}  // namespace
}  // namespace qvn
