#include "counter_window.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>

namespace mostrador {
namespace {

QString money(const qvn::LumLibreria& library, Cents cents) {
  return QString::fromStdString(library.Formato(toAmount(cents), "#,##0.00").toText());
}

QTableWidgetItem* cell(const QString& text, bool isNumber) {
  auto* item = new QTableWidgetItem(text);
  if (isNumber) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return item;
}

}  // namespace

CounterWindow::CounterWindow(const qvn::LumLibreria& library, qvn::host::AmbientePtr station,
                             std::function<void(const ClosedSale&)> closed)
    : library_(library), station_(std::move(station)), closed_(std::move(closed)) {
  build();
  showProducts();
  showSale();
}

void CounterWindow::build() {
  setWindowTitle("Mostrador");
  resize(1020, 480);
  searchBox_ = new QLineEdit;
  searchBox_->setPlaceholderText("Código o parte del nombre");
  products_ = new QListWidget;
  products_->setMinimumWidth(370);
  quantity_ = new QDoubleSpinBox;
  quantity_->setRange(0.001, 100000);
  quantity_->setDecimals(3);
  quantity_->setValue(1);
  lines_ = new QTableWidget(0, 4);
  lines_->setHorizontalHeaderLabels({"Artículo", "Cantidad", "Precio", "Importe"});
  lines_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  lines_->verticalHeader()->hide();
  lines_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lines_->setSelectionBehavior(QAbstractItemView::SelectRows);
  total_ = new QLabel;
  total_->setAlignment(Qt::AlignRight);
  total_->setStyleSheet("font-size: 30pt; font-weight: bold;");
  message_ = new QLabel;
  message_->setWordWrap(true);
  auto* add = new QPushButton("&Agregar");
  auto* remove = new QPushButton("&Quitar línea (Supr)");
  auto* cancel = new QPushButton("&Cancelar venta (Esc)");
  auto* pay = new QPushButton("C&obrar (F12)");
  pay->setStyleSheet("font-weight: bold;");

  auto* grid = new QGridLayout(this);
  grid->addWidget(searchBox_, 0, 0, 1, 2);
  grid->addWidget(products_, 1, 0, 1, 2);
  grid->addWidget(new QLabel("Cantidad"), 2, 0);
  grid->addWidget(quantity_, 2, 1);
  grid->addWidget(add, 3, 0, 1, 2);
  grid->addWidget(lines_, 0, 2, 2, 3);
  grid->addWidget(total_, 2, 2, 1, 3);
  grid->addWidget(remove, 3, 2);
  grid->addWidget(cancel, 3, 3);
  grid->addWidget(pay, 3, 4);
  grid->addWidget(message_, 4, 0, 1, 5);
  grid->setColumnStretch(2, 1);
  grid->setColumnStretch(3, 1);
  grid->setColumnStretch(4, 1);

  connect(searchBox_, &QLineEdit::textChanged, this, [this] { showProducts(); });
  connect(searchBox_, &QLineEdit::returnPressed, this, [this] { addMarked(); });
  connect(products_, &QListWidget::itemActivated, this, [this] { addMarked(); });
  connect(add, &QPushButton::clicked, this, [this] { addMarked(); });
  connect(remove, &QPushButton::clicked, this, [this] { removeLine(); });
  connect(cancel, &QPushButton::clicked, this, [this] { cancelSale(); });
  connect(pay, &QPushButton::clicked, this, [this] { askPayment(); });
  connect(new QShortcut(QKeySequence(Qt::Key_Delete), lines_), &QShortcut::activated, this, [this] { removeLine(); });
  connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, [this] { cancelSale(); });
  connect(new QShortcut(QKeySequence(Qt::Key_F12), this), &QShortcut::activated, this, [this] { askPayment(); });
}

// Does the work; what goes wrong is said in the window, and in the log of errors.
template <typename Work>
bool CounterWindow::tell(Work work) {
  try {
    message_->clear();
    work();
    return true;
  } catch (const qvn::RuntimeError& error) {
    message_->setText(QString::fromStdString(error.description()));
    message_->setStyleSheet("color: #b00020;");
    return false;
  }
}

void CounterWindow::search(const QString& text) { searchBox_->setText(text); }

void CounterWindow::setQuantity(double quantity) { quantity_->setValue(quantity); }

void CounterWindow::showProducts() {
  tell([this] {
    found_ = searchProducts(station_->Conexion(), searchBox_->text().trimmed().toStdString());
    products_->clear();
    for (const Product& product : found_) {
      products_->addItem(QString::fromStdString(product.code + "  " + product.name) + "   $" +
                         money(library_, product.price));
    }
    if (found_.size() == 1) products_->setCurrentRow(0);
  });
}

void CounterWindow::addMarked() {
  tell([this] {
    const int row = products_->currentRow();
    // A scanner types the whole code.
    auto product = findProduct(library_, station_->Conexion(), searchBox_->text().trimmed().toStdString());
    if (!product && row >= 0) product = found_[static_cast<std::size_t>(row)];
    if (!product) throw qvn::RuntimeError(5, "Elija un artículo de la lista");
    sale_.add(*product, quantity_->value());
    quantity_->setValue(1);
    searchBox_->clear();
    showSale();
  });
}

void CounterWindow::showSale() {
  lines_->setRowCount(static_cast<int>(sale_.lines().size()));
  int row = 0;
  for (const SaleLine& line : sale_.lines()) {
    lines_->setItem(row, 0, cell(QString::fromStdString(line.product.name), false));
    lines_->setItem(row, 1,
                    cell(QString::fromStdString(library_.Formato(line.quantity, "General Number").toText()), true));
    lines_->setItem(row, 2, cell(money(library_, line.product.price), true));
    lines_->setItem(row, 3, cell(money(library_, line.amount()), true));
    ++row;
  }
  total_->setText("Total  $" + money(library_, sale_.total()));
  searchBox_->setFocus();
}

void CounterWindow::removeLine() {
  const int row = lines_->currentRow();
  if (row < 0) return;
  sale_.remove(static_cast<std::size_t>(row));
  showSale();
}

void CounterWindow::cancelSale() {
  if (sale_.lines().empty() || !library_.Question("¿Cancelar la venta?", 2)) return;
  sale_.clear();
  showSale();
}

void CounterWindow::askPayment() {
  if (sale_.lines().empty()) return;
  const std::string typed = library_.MyInputBox(
      "Total $" + library_.Formato(toAmount(sale_.total()), "#,##0.00").toText() + ". ¿Cuánto recibe?");
  if (!library_.clEmpty(typed)) pay(toCents(library_.Val2(typed)));
}

std::optional<ClosedSale> CounterWindow::pay(Cents received) {
  std::optional<ClosedSale> done;
  tell([&] {
    done = closeSale(library_, station_, sale_, received);
    sale_.clear();
    showSale();
    showProducts();
    closed_(*done);
    message_->setStyleSheet("color: #1b5e20;");
    message_->setText("Venta " + QString::number(done->number) + " cobrada. Cambio: $" +
                      money(library_, done->payment.change()));
  });
  return done;
}

}  // namespace mostrador
