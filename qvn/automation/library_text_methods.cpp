#include "qvn/automation/method.h"
#include "qvn/automation/sections.h"

namespace qvn::automation {

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Section> textSections() {
  return {
      {"Numbers as text",
       {"qvn/text/decimal_text.h", "qvn/text/pattern.h"},
       {
           method<&LumLibreria::SeparadorDecimal>("SeparadorDecimal"),
           method<&LumLibreria::FormatoDecimal>("FormatoDecimal", "uValue"),
           method<&LumLibreria::Fn>("Fn", "strValue"),
           method<&LumLibreria::Val2>("Val2", "uDato"),
           method<&LumLibreria::Formato>("Formato", "Var", "strFormat"),
       }},
      {"Small arithmetic",
       {"qvn/text/arithmetic.h"},
       {
           method<&LumLibreria::Sqr2>("Sqr2", "nDato"),
           method<&LumLibreria::Max>("Max", "nNumero1", "nNumero2"),
           method<&LumLibreria::Min>("Min", "nNumero1", "nNumero2"),
           method<&LumLibreria::bolValue>("bolValue", "nValue"),
           method<&LumLibreria::bolInt>("bolInt", "bolValue"),
       }},
      {"Padding and blanks",
       {"qvn/text/padding.h", "qvn/text/null_text.h"},
       {
           method<&LumLibreria::PadR>("PadR", "str", "nVeces"),
           method<&LumLibreria::PadL>("PadL", "str", "nVeces"),
           method<&LumLibreria::Replicate>("Replicate", "cChar", "nVeces"),
           method<&LumLibreria::strCero>("strCero", "nNumero", "nCeros"),
           method<&LumLibreria::clEmpty>("clEmpty", "cDato"),
           method<&LumLibreria::cNull>("cNull", "uDato"),
       }},
      {"Searching, replacing, splitting",
       {"qvn/text/search.h", "qvn/text/replace.h", "qvn/text/split.h"},
       {
           method<&LumLibreria::At>("At", "strSearch", "strText"),
           method<&LumLibreria::clAt>("clAt", "strSearch", "strText"),
           method<&LumLibreria::Inserta>("Inserta", "cInserta", "cBusca", "cTarget"),
           method<&LumLibreria::Cambia>("Cambia", "cInserta", "cBusca", "cTarget"),
           method<&LumLibreria::ReplaceString>("ReplaceString", "strSearch", "strSearchFor", "strReplaceWith"),
           method<&LumLibreria::DataSeparator>("DataSeparator", "Separator", "strSearch", "List"),
           method<&LumLibreria::Separador>("Separador", "Separator", "strSearch", "List"),
       }},
      {"Record lines",
       {"qvn/rowtext/write_record.h", "qvn/rowtext/read_record.h", "qvn/rowtext/ws_field.h", "qvn/rowtext/text_data.h"},
       {
           method<&LumLibreria::WsRecordSet>("WsRecordSet", "rst"),
           method<&LumLibreria::WsFields>("WsFields", "strWinsock"),
           method<&LumLibreria::newData>("newData", "strKey", "uData"),
           method<&LumLibreria::NewTextData>("NewTextData"),
       }},
      {"Text boxes",
       {"qvn/text/keystrokes.h", "qvn/text/text_box_format.h"},
       {
           method<&LumLibreria::ToNumber>("ToNumber", "KeyAscii", "Control", "bolDecimales=true"),
           method<&LumLibreria::UEspecial>("UEspecial", "KeyAscii", "Control"),
           method<&LumLibreria::AplicaFormato>("AplicaFormato", "Text", "Ambiente", "Formato=\"\""),
       }},
      {"Account numbers",
       {"qvn/text/account.h"},
       {
           method<&LumLibreria::FormateaCuenta>("FormateaCuenta", "cCuenta", "nNiveles", "nNivel1", "nNivel2",
                                                "nNivel3", "nNivel4", "nNivel5"),
           method<&LumLibreria::NivelDeCuenta>("NivelDeCuenta", "cCuentaNivel1", "cCuentaNivel2", "cCuentaNivel3",
                                               "cCuentaNivel4", "cCuentaNivel5"),
       }},
      {"Amounts in words",
       {"qvn/text/amount_in_words.h"},
       {
           method<&LumLibreria::PonLetra>("PonLetra", "Numero", "Leyenda", "bolDecimales", "strMoneda=\"\""),
       }},
      {"Calendar",
       {"qvn/text/calendar.h"},
       {
           method<&LumLibreria::Mes>("Mes", "nMes"),
           method<&LumLibreria::Dia>("Dia", "dFecha"),
           method<&LumLibreria::MesAnterior>("MesAnterior", "nMes"),
           method<&LumLibreria::MesSiguiente>("MesSiguiente", "nMes"),
           method<&LumLibreria::biciesto>("biciesto", "nYear"),
           method<&LumLibreria::Ud>("Ud", "nMes", "nYear", "bolUltimo=false"),
           method<&LumLibreria::ElSiguienteMes>("ElSiguienteMes", "nMes", "nDia", "nYear"),
           method<&LumLibreria::PrimerDiaDelaSemana>("PrimerDiaDelaSemana", "dFecha"),
           method<&LumLibreria::DateTimeSerial>("DateTimeSerial", "dFecha", "tTiempo"),
           method<&LumLibreria::TimeLocal>("TimeLocal"),
           method<&LumLibreria::ValidaFecha>("ValidaFecha", "dFecha", "Ambiente", "bolMensajes=true"),
       }},
      {"Scrambling, chance, statistics, sorting",
       {"qvn/text/scrambling.h", "qvn/text/statistics.h", "qvn/text/shell_sort.h"},
       {
           method<&LumLibreria::Encrypta>("Encrypta", "cTexto", "nLlave"),
           method<&LumLibreria::Decrypta>("Decrypta", "cTexto", "nLlave"),
           method<&LumLibreria::numeroAleatorio>("numeroAleatorio", "upperbound", "lowerbound"),
           method<&LumLibreria::StdDev>("StdDev", "a"),
           method<&LumLibreria::ShellSortAny>("ShellSortAny", "vArray", "SortOrder=0"),
       }},
  };
}

}  // namespace qvn::automation
