#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(NamedFormat, LaysOutNumbers) {
  expectFormatted("en_US.UTF-8", {
                                     {"general", 1234.5, "General Number", "1234.5"},
                                     {"general, exponent", 1.5e20, "General Number", "1.5E+20"},
                                     {"fixed", 1234.567, "Fixed", "1234.57"},
                                     {"standard", 1234.567, "Standard", "1,234.57"},
                                     {"percent", 0.1234, "Percent", "12.34%"},
                                     {"scientific", 1234.5, "Scientific", "1.23E+03"},
                                     {"in any case", 1234.5, "sTANDARD", "1,234.50"},
                                     {"a name is the whole pattern", 5, "Fixed ", "Fixe4 "},
                                 });
}

TEST(NamedFormat, LaysOutAmountsByTheLocale) {
  expectFormatted("en_US.UTF-8", {
                                     {"positive", 1234.5, "Currency", "$1,234.50"},
                                     {"negative in parentheses", -1234.5, "Currency", "($1,234.50)"},
                                     {"nothing left after rounding", -0.004, "Currency", "$0.00"},
                                     {"half a cent", *Decimal::fromText("-0.005"), "Currency", "($0.01)"},
                                 });
  expectFormatted("es_MX.UTF-8", {{"a blank behind the symbol", 1234.5, "Currency", "$ 1,234.50"}});
  expectFormatted("es_ES.UTF-8", {{"symbol behind", -1234.5, "Currency", "(1.234,50 €)"}});
  expectFormatted("C", {{"no symbol", 1234.5, "currency", "1,234.50"}});
}

TEST(NamedFormat, ChoosesWords) {
  expectFormatted("es_MX.UTF-8", {
                                     {"yes", -1, "Yes/No", "Sí"},
                                     {"no", 0, "Yes/No", "No"},
                                     {"true", 0.3, "True/False", "Verdadero"},
                                     {"false", false, "True/False", "Falso"},
                                     {"on", "7", "On/Off", "Activado"},
                                     {"off", Empty{}, "on/off", "Desactivado"},
                                     {"Null has no word", Null{}, "Yes/No", ""},
                                     {"nor has text", "abc", "Yes/No", "abc"},
                                 });
  expectFormatted("de_DE.UTF-8", {
                                     {"English for other languages", true, "Yes/No", "Yes"},
                                     {"false", 0, "True/False", "False"},
                                     {"on", 1, "On/Off", "On"},
                                 });
}

TEST(NamedFormat, LaysOutDates) {
  const Date evening = Date::fromCivil(2012, 3, 7, {21, 5, 9});
  expectFormatted("es_MX.UTF-8", {
                                     {"general", evening, "General Date", "07/03/2012 21:05:09"},
                                     {"long", evening, "Long Date", "miércoles, 7 de marzo de 2012"},
                                     {"medium", evening, "Medium Date", "07-mar-12"},
                                     {"short", evening, "Short Date", "07/03/2012"},
                                     {"long time", evening, "Long Time", "21:05:09"},
                                     {"medium time", evening, "Medium Time", "09:05 PM"},
                                     {"short time", evening, "SHORT TIME", "21:05"},
                                     {"of a text", "07/03/2012", "Medium Date", "07-mar-12"},
                                     {"of a day count", 40975, "Short Date", "07/03/2012"},
                                 });
}

}  // namespace
}  // namespace qvn
