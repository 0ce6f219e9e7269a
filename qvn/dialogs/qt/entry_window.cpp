#include "qvn/dialogs/qt/entry_window.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "qvn/dialogs/captions.h"
#include "qvn/dialogs/qt/keyboard_window.h"
#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs::qt {

EntryWindow::EntryWindow(std::string_view title, Kind kind) : line_(new QLineEdit(this)) {
  prepare(*this, kEntryCaption);
  auto* const label = new QLabel(shownText(title), this);
  label->setObjectName("lblTitulo");
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setBuddy(line_);
  line_->setObjectName("txtMensaje");
  if (kind == Kind::Password) line_->setEchoMode(QLineEdit::Password);
  QPushButton* const accept = button(kAccept, "cmdAceptar", *this);
  QPushButton* const cancel = button(kCancel, "cmdCancelar", *this);
  QPushButton* const keyboard = button("&Teclado", "cmdKeyBoard", *this);
  accept->setDefault(true);
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(keyboard, &QPushButton::clicked, this, &EntryWindow::openKeyboard);
  auto* const rows = new QGridLayout(this);
  if (kind == Kind::Password) {
    QLabel* const reader = iconLabel(QStyle::SP_MessageBoxQuestion, *this);
    reader->setObjectName("ImagenLector");
    rows->addWidget(reader, 0, 0, 2, 1, Qt::AlignTop);
  }
  rows->addWidget(label, 0, 1);
  rows->addWidget(line_, 1, 1);
  auto* const row = new QHBoxLayout();
  row->addWidget(keyboard);
  row->addStretch();
  row->addWidget(accept);
  row->addWidget(cancel);
  rows->addLayout(row, 2, 0, 1, 2);
  line_->setFocus();
  resize(sizeHint().expandedTo({pixels(*this, 6000), 0}));
}

void EntryWindow::openKeyboard() {
  KeyboardWindow keyboard(line_->text(), line_->echoMode());
  if (keyboard.exec() == Accepted) line_->setText(keyboard.text());
  line_->setFocus();
}

}  // namespace qvn::dialogs::qt
