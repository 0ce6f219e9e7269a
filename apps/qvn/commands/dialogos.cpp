// qvn mensaje, pregunta and entrada: what scripts ask the person.
#include <array>

#include "apps/qvn/commands.h"

namespace qvn::cli {
namespace {

constexpr Option kWindowOption{"ventana", 'v', "", "en una ventana, no en la terminal"};

constexpr Option kAlertOption{"alerta", 0, "", "como aviso"};
constexpr auto kMessageOptions = std::to_array<Option>({kAlertOption, kWindowOption});
constexpr std::string_view kMessageDescription = R"(
Muestra TEXTO a la persona, en la salida de errores. Sin TEXTO lo lee de la
entrada estándar. Los caracteres de control se ven como \x1B y no hacen nada.
)";
constexpr std::string_view kMessageExamples = R"(
  qvn mensaje "El respaldo terminó"
  qvn mensaje --ventana --alerta "Falta papel en la impresora"
)";

constexpr Option kAllOption{"todo", 0, "", "ofrece Si, Si a todo, No y Cancelar"};
constexpr Option kDefaultOption{"boton", 'b', "NUMERO", "botón que vale con Enter (1)"};
constexpr auto kQuestionOptions = std::to_array<Option>({kAllOption, kDefaultOption, kWindowOption});
constexpr std::string_view kQuestionDescription = R"(
Pregunta TEXTO y espera la respuesta: la letra de un botón, su número o su
nombre; Enter solo es el botón de --boton. El estado de salida es la respuesta:
  0  Si
  1  No, o se acabó la entrada sin respuesta
y con --todo también
  3  Cancelar, o se acabó la entrada sin respuesta
  4  Si a todo
)";
constexpr std::string_view kQuestionExamples = R"(
  qvn pregunta -b 2 "¿Borrar el respaldo anterior?" && rm respaldo.sql
)";

constexpr Option kHiddenOption{"oculta", 0, "", "no muestra lo que se escribe, como en una contraseña"};
constexpr auto kEntryOptions = std::to_array<Option>({kHiddenOption, kWindowOption});
constexpr std::string_view kEntryDescription = R"(
Pide una línea a la persona, con TEXTO delante, y la escribe en la salida. El
estado de salida es 3 cuando la línea está vacía o se acabó la entrada.
)";
constexpr std::string_view kEntryExamples = R"(
  qvn entrada "Nombre del cliente" > nombre.txt
)";

// Before anything is read, because the call may begin anew in the program with windows.
void openWindowsIfAsked(const Arguments& arguments, const Context& context) {
  if (arguments.has(kWindowOption.name)) context.openWindows();
}

std::string_view onlyText(const Arguments& arguments) {
  if (arguments.operands().size() != 1) throw UsageError("se espera un texto; póngalo entre comillas");
  return arguments.operands().front();
}

ExitStatus runMensaje(const Arguments& arguments, Context& context) {
  openWindowsIfAsked(arguments, context);
  const std::string text = arguments.operands().empty() ? readStandardInput() : std::string(onlyText(arguments));
  if (arguments.has(kAlertOption.name)) {
    context.library.Alerta(text);
  } else {
    context.library.MyMessage(text);
  }
  return ExitStatus::Done;
}

std::int16_t defaultButton(const Arguments& arguments, char last) {
  const std::string_view given = arguments.value(kDefaultOption.name).value_or("1");
  if (given.size() != 1 || given[0] < '1' || given[0] > last) {
    throw UsageError(std::string("el botón va de 1 a ") + last);
  }
  return static_cast<std::int16_t>(given[0] - '0');
}

ExitStatus runPregunta(const Arguments& arguments, Context& context) {
  const std::string_view text = onlyText(arguments);
  openWindowsIfAsked(arguments, context);
  if (!arguments.has(kAllOption.name)) {
    return context.library.Question(text, defaultButton(arguments, '2')) ? ExitStatus::Done : ExitStatus::Failed;
  }
  switch (context.library.Question2(text, defaultButton(arguments, '4'))) {
    case 1:
      return ExitStatus::Done;
    case 2:
      return ExitStatus::YesToAll;
    case 3:
      return ExitStatus::Failed;
    default:
      return ExitStatus::NoAnswer;
  }
}

ExitStatus runEntrada(const Arguments& arguments, Context& context) {
  const std::string_view text = onlyText(arguments);
  openWindowsIfAsked(arguments, context);
  const std::string typed = arguments.has(kHiddenOption.name) ? context.library.MyInputPasswordBox(text, nullptr)
                                                              : context.library.MyInputBox(text);
  if (typed.empty()) return ExitStatus::NoAnswer;
  context.out << typed << "\n";
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kMensajeCommand{
    "mensaje", "muestra un mensaje a la persona", "[TEXTO]", kMessageDescription, kMessageOptions, kMessageExamples,
    runMensaje};
constinit const Command kPreguntaCommand{"pregunta",       "pregunta sí o no; el estado de salida es la respuesta",
                                         "TEXTO",          kQuestionDescription,
                                         kQuestionOptions, kQuestionExamples,
                                         runPregunta};
constinit const Command kEntradaCommand{
    "entrada", "pide una línea a la persona y la escribe", "TEXTO", kEntryDescription, kEntryOptions, kEntryExamples,
    runEntrada};

}  // namespace qvn::cli
