#include "qvn/dialogs/qt/keyboard_window.h"

#include <QGridLayout>
#include <array>

#include "qvn/dialogs/captions.h"
#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs::qt {
namespace {

constexpr int kColumns = 10;
constexpr std::array kLetters = {"1234567890", "qwertyuiop", "asdfghjklñ", "zxcvbnm,.-", "áéíóúü¿?¡!"};
constexpr std::array kSymbols = {"1234567890", "@#$%&*()/\\", "+=_<>[]{}|", "\"';:~^`°€¬", "«»ºª·çàèïÿ"};

QChar characterAt(const std::array<const char*, 5>& layout, std::size_t key) {
  return QString::fromUtf8(layout[key / kColumns]).at(static_cast<qsizetype>(key % kColumns));
}

}  // namespace

KeyboardWindow::KeyboardWindow(const QString& text, QLineEdit::EchoMode echo) : line_(new QLineEdit(text, this)) {
  prepare(*this, kEntryCaption);
  line_->setObjectName("txtMensaje");
  line_->setEchoMode(echo);
  auto* const grid = new QGridLayout(this);
  grid->addWidget(line_, 0, 0, 1, kColumns);
  for (std::size_t i = 0; i < kColumns * kLetters.size(); ++i) {
    QPushButton* const typed = key({}, "tecla");
    connect(typed, &QPushButton::clicked, this, [this, typed] {
      // What the key shows, without the doubling that keeps "&" from being a mnemonic.
      line_->insert(typed->text().replace("&&", "&"));
      if (shift_->isChecked()) shift_->click();
    });
    keys_.push_back(typed);
    grid->addWidget(typed, 1 + static_cast<int>(i) / kColumns, static_cast<int>(i) % kColumns);
  }
  shift_ = key("Mayús", "mayusculas");
  symbols_ = key("Símbolos", "simbolos");
  for (QPushButton* const layer : {shift_, symbols_}) {
    layer->setCheckable(true);
    connect(layer, &QPushButton::toggled, this, &KeyboardWindow::label);
  }
  QPushButton* const blank = key("Espacio", "espacio");
  connect(blank, &QPushButton::clicked, this, [this] { line_->insert(" "); });
  QPushButton* const erase = key("Borrar", "borrar");
  connect(erase, &QPushButton::clicked, line_, &QLineEdit::backspace);
  QPushButton* const accept = button(kAccept, "cmdAceptar", *this);
  QPushButton* const cancel = button(kCancel, "cmdCancelar", *this);
  accept->setDefault(true);
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  const int last = 1 + static_cast<int>(kLetters.size());
  grid->addWidget(shift_, last, 0, 1, 2);
  grid->addWidget(symbols_, last, 2, 1, 2);
  grid->addWidget(blank, last, 4, 1, 4);
  grid->addWidget(erase, last, 8, 1, 2);
  grid->addWidget(accept, last + 1, 4, 1, 3);
  grid->addWidget(cancel, last + 1, 7, 1, 3);
  label();
  line_->setFocus();
}

void KeyboardWindow::setVisible(bool visible) {
  QDialog::setVisible(visible);
  // A window that opens selects its first line; what is typed goes behind the text here.
  if (visible) line_->end(false);
}

QPushButton* KeyboardWindow::key(const QString& caption, const char* name) {
  QPushButton* const made = button({}, name, *this);
  made->setText(caption);
  made->setAutoDefault(false);
  // The line keeps the focus and its cursor.
  made->setFocusPolicy(Qt::NoFocus);
  made->setMinimumWidth(pixels(*this, 600));
  return made;
}

void KeyboardWindow::label() {
  const std::array<const char*, 5>& layout = symbols_->isChecked() ? kSymbols : kLetters;
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    const QChar character = characterAt(layout, i);
    const QString shown = shift_->isChecked() ? QString(character).toUpper() : QString(character);
    keys_[i]->setText(shown == "&" ? QString("&&") : shown);
  }
}

}  // namespace qvn::dialogs::qt
