// qvn precios: the history of a product's prices, and a new entry in it.
#include <array>
#include <memory>
#include <string>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/field_text.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/base/utf8.h"
#include "qvn/ledger/price_history.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Sin precios, muestra los cambios de precio de un artículo que hay en «histcamb»,
del más viejo al más nuevo: un renglón para el precio 1 y otro para cada uno de
los demás, hasta el 10, que era o es distinto de cero.

Con precios, registra un cambio con SalvaHistCamb: los precios que se dan, y la
existencia y los precios que el artículo tiene ahora en «prods», con la fecha y
la hora. Los precios que no se dan se registran como 0. Los precios de «prods»
no cambian: eso lo hace quien llama, después de registrar. El número del
registro sale del consecutivo histcamb de «consec».

Los precios llevan punto decimal y no llevan comas.
)";

constexpr std::string_view kExamples = R"(
  qvn precios TAL-12 -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db'
      los cambios de un artículo de la tienda que deja «qvn demo»
  qvn precios TAL-12 1390.00 1290.00 --usuario MARIA --sucursal 1
      registra un cambio de los precios 1 y 2 en la base de QVN_CONEXION
)";

constexpr Option kUserOption{"usuario", 'u', "USUARIO", "quien hizo el cambio"};
constexpr Option kBranchOption{"sucursal", 's', "SUCURSAL", "la sucursal donde se hizo"};
constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kUserOption, kBranchOption, kTraceOption});

constexpr std::size_t kPriceCount = std::tuple_size_v<ledger::Prices>;

bool isKnown(const std::string& product, const data::ConnectionPtr& connection, const LumLibreria& library) {
  const auto rows =
      library.CreaRecordSet("SELECT articulo FROM prods WHERE articulo = " + connection->Literal(product), connection);
  return !rows->Eof();
}

bool isZero(const Variant& price) { return price.isNull() || price.toDouble() == 0; }

// An entry without any price still has a line.
void addEntry(data::Recordset& entry, const LumLibreria& library, TableWriter& table) {
  for (std::size_t i = 1; i <= kPriceCount; ++i) {
    const std::string number = std::to_string(i);
    const Variant& before = entry.Fields("precioold" + number).Value();
    const Variant& after = entry.Fields("precio" + number).Value();
    if (i > 1 && isZero(before) && isZero(after)) continue;
    const Variant date = library.Formato(entry.Fields("usufecha").Value(), "dd/mm/yyyy");
    table.add({fieldCell(entry.Fields("id")), textCell(safeText(date.toText())), fieldCell(entry.Fields("usuhora")),
               fieldCell(entry.Fields("sucursal")), fieldCell(entry.Fields("usuario")),
               fieldCell(entry.Fields("existencia")), numberCell(number), amountCell(before), amountCell(after)});
  }
}

ExitStatus listChanges(const std::string& product, const data::ConnectionPtr& connection, Context& context) {
  const auto entries = context.library.CreaRecordSet(
      "SELECT * FROM histcamb WHERE articulo = " + connection->Literal(product) + " ORDER BY id", connection);
  if (entries->Eof() && !isKnown(product, connection, context.library)) {
    context.messages << "qvn: no existe el artículo «" << safeText(product) << "» en «prods» ni en «histcamb»\n";
    return ExitStatus::Failed;
  }
  TableWriter table(context.out,
                    {"id", "fecha", "hora", "sucursal", "usuario", "existencia", "precio", "antes", "después"});
  for (; !entries->Eof(); entries->MoveNext()) addEntry(*entries, context.library, table);
  table.end();
  return ExitStatus::Done;
}

ledger::Prices readPrices(const Arguments& arguments) {
  if (arguments.operands().size() > kPriceCount + 1) throw UsageError("un artículo tiene a lo más diez precios");
  ledger::Prices prices{};
  for (std::size_t i = 1; i < arguments.operands().size(); ++i) {
    prices.at(i - 1) = decimalOperand(arguments.operands()[i], "un precio");
  }
  return prices;
}

ExitStatus recordChange(const std::string& product, const ledger::Prices& prices, const Arguments& arguments,
                        const data::ConnectionPtr& connection, Context& context) {
  if (!isKnown(product, connection, context.library)) {
    context.messages << "qvn: no existe el artículo «" << safeText(product) << "» en «prods»\n";
    return ExitStatus::Failed;
  }
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  ambiente->setUsuario(std::string(arguments.value(kUserOption.name).value_or("")));
  if (const auto branch = arguments.value(kBranchOption.name)) ambiente->setSucursal(Variant(*branch));
  const auto& [p1, p2, p3, p4, p5, p6, p7, p8, p9, p10] = prices;
  context.library.SalvaHistCamb(product, p1, p2, p3, p4, p5, p6, p7, p8, p9, p10, ambiente);
  return listChanges(product, connection, context);
}

ExitStatus runPrecios(const Arguments& arguments, Context& context) {
  constexpr std::string_view kWhat = "un código de artículo";
  if (arguments.operands().empty()) throw UsageError("falta " + std::string(kWhat));
  const std::string product = codeOperand(utf8::trimBlanks(arguments.operands().front()), kWhat);
  const bool isChange = arguments.operands().size() > 1;
  if (!isChange && (arguments.has(kUserOption.name) || arguments.has(kBranchOption.name))) {
    throw UsageError("--usuario y --sucursal sólo acompañan a un cambio; faltan los precios");
  }
  const ledger::Prices prices = readPrices(arguments);
  const data::ConnectionPtr connection = connect(arguments, context);
  return isChange ? recordChange(product, prices, arguments, connection, context)
                  : listChanges(product, connection, context);
}

}  // namespace

constinit const Command kPreciosCommand{"precios",
                                        "muestra o registra cambios de precio de un artículo",
                                        "ARTICULO [PRECIO...]",
                                        kDescription,
                                        kOptions,
                                        kExamples,
                                        runPrecios};

}  // namespace qvn::cli
