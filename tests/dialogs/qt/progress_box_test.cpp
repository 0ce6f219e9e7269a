// The window of progress, worked as a person does.
#include "qvn/dialogs/qt/progress_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QtTest/QTest>

#include "qvn/dialogs/progress.h"
#include "qvn/dialogs/qt/qt_progress.h"

namespace qvn::dialogs {
namespace {

QString labelText(const QWidget& window, const char* name) { return window.findChild<QLabel*>(name)->text(); }

const ProgressState kHalf{
    .title = "Exportación", .text = "<b>clients</b>", .done = 50, .total = 100, .elapsed = std::chrono::seconds(30)};

TEST(QtProgress, ShowsTextsBarAndTimeLeft) {
  ProgressViewPtr view = qtProgress();
  ASSERT_NE(view, nullptr);
  EXPECT_FALSE(view->show(kHalf));
  const QWidget* const window = QApplication::activeModalWidget();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->windowTitle(), "Exportación");
  EXPECT_EQ(labelText(*window, "lblMensaje"), "<b>clients</b>");
  EXPECT_EQ(labelText(*window, "lblFaltan"), "faltan 0:30");
  const auto* const bar = window->findChild<QProgressBar*>();
  EXPECT_EQ(bar->text(), "50 %");
  EXPECT_EQ(bar->value() * 2, bar->maximum());
  view->show({.text = "clients", .done = 7});
  EXPECT_EQ(bar->maximum(), 0);
  EXPECT_EQ(labelText(*window, "lblFaltan"), "");
  view.reset();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(QtProgress, HoldsMoreThanBarsCount) {
  qt::ProgressBox box;
  box.display({.done = 3'000'000'000, .total = 4'000'000'000});
  EXPECT_EQ(box.findChild<QProgressBar*>()->text(), "75 %");
  box.display({.done = 5, .total = 4});
  EXPECT_EQ(box.findChild<QProgressBar*>()->text(), "100 %");
}

// The button, Escape and the close box.
TEST(QtProgress, IsCancelledByThePerson) {
  using Act = void (*)(QWidget&);
  for (const Act act :
       {Act([](QWidget& window) { QTest::mouseClick(window.findChild<QPushButton*>("cmdCancelar"), Qt::LeftButton); }),
        Act([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }),
        Act([](QWidget& window) { window.close(); })}) {
    Progress progress;
    int told = 0;
    progress.setOnCancel([&told] { ++told; });
    progress.Show();
    QWidget* const window = QApplication::activeModalWidget();
    ASSERT_NE(window, nullptr);
    act(*window);
    // The work has not ended yet.
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(labelText(*window, "lblFaltan"), "Cancelando...");
    EXPECT_FALSE(window->findChild<QPushButton*>("cmdCancelar")->isEnabled());
    progress.Show();
    EXPECT_TRUE(progress.Cancelled());
    EXPECT_EQ(told, 1);
  }
}

TEST(QtProgress, CannotBeCancelledWhereThatIsNotMeant) {
  qt::ProgressBox box;
  box.display({.canCancel = false});
  box.show();
  QTest::keyClick(&box, Qt::Key_Escape);
  EXPECT_TRUE(box.isVisible());
  EXPECT_FALSE(box.isCancelled());
}

}  // namespace
}  // namespace qvn::dialogs
