// The counter's window: look up a product, add lines, take the payment.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "qvn/lumlibreria.h"
#include "sale.h"

class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QTableWidget;

namespace mostrador {

class CounterWindow final : public QWidget {
 public:
  /// `closed` is called with each sale that was paid. `library` must outlive the window.
  CounterWindow(const qvn::LumLibreria& library, qvn::host::AmbientePtr station,
                std::function<void(const ClosedSale&)> closed);

  /// Puts a text into the search box, as a person or a scanner types it.
  void search(const QString& text);
  /// Adds the marked product; one whose code was typed whole needs no mark.
  void addMarked();
  void setQuantity(double quantity);
  /// Pays the sale. Shows what is wrong, and gives nothing, when that fails.
  std::optional<ClosedSale> pay(Cents received);

 private:
  void build();
  void showProducts();
  void showSale();
  void removeLine();
  void cancelSale();
  void askPayment();
  template <typename Work>
  bool tell(Work work);

  const qvn::LumLibreria& library_;
  qvn::host::AmbientePtr station_;
  std::function<void(const ClosedSale&)> closed_;
  std::vector<Product> found_;
  Sale sale_;
  QLineEdit* searchBox_ = nullptr;
  QListWidget* products_ = nullptr;
  QDoubleSpinBox* quantity_ = nullptr;
  QTableWidget* lines_ = nullptr;
  QLabel* total_ = nullptr;
  QLabel* message_ = nullptr;
};

}  // namespace mostrador
