// What the windows are made of.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QWidget>
#include <string_view>

namespace qvn::dialogs::qt {

/// Twips of the screen that a widget is on: 1440 to the logical inch.
int pixels(const QWidget& widget, double twips);
double twips(const QWidget& widget, int pixels);

/// UTF-8 with its control characters escaped.
QString shownText(std::string_view text);

/// A dialog of that caption, without the button for help that some systems add.
void prepare(QDialog& window, std::string_view caption);

/// The text as it is, in lines of the widget's width; long texts scroll.
QPlainTextEdit* textView(std::string_view text, QWidget& parent);

QLabel* iconLabel(QStyle::StandardPixmap icon, QWidget& parent);

/// A button of a caption with its mnemonic. Enter presses the one with the focus.
QPushButton* button(std::string_view caption, const char* name, QWidget& parent);

}  // namespace qvn::dialogs::qt
