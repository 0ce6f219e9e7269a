// Progress: when it is shown, what it says, and how it is cancelled.
#include "qvn/dialogs/progress.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "qvn/dialogs/default_progress.h"
#include "qvn/dialogs/progress_text.h"
#include "qvn/dialogs/scripted_progress.h"
#include "qvn/dialogs/terminal_progress.h"

namespace qvn::dialogs {
namespace {

using std::chrono::milliseconds;

TEST(ProgressText, Percentages) {
  struct Row {
    std::int64_t done;
    std::int64_t total;
    int percent;
  };
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  constexpr Row kRows[] = {{0, 3, 0},   {1, 3, 33},  {29, 100, 29}, {999, 1000, 99},     {3, 3, 100},
                           {4, 3, 100}, {0, 0, 100}, {-1, 3, 0},    {kMost, kMost, 100}, {kMost / 2, kMost, 50}};
  for (const Row& row : kRows) EXPECT_EQ(percentOf(row.done, row.total), row.percent) << row.done << "/" << row.total;
}

TEST(ProgressText, ALineHasABar) {
  EXPECT_EQ(progressLine("totales", 0, 3), "totales  [░░░░░░░░░░░░░░░░░░░░]  0 %");
  EXPECT_EQ(progressLine("totales", 1, 3), "totales  [██████░░░░░░░░░░░░░░]  33 %");
  EXPECT_EQ(progressLine("totales", 3, 3), "totales  [████████████████████]  100 %");
}

TEST(ProgressText, TimeLeft) {
  struct Row {
    double seconds;
    std::int64_t done;
    std::int64_t total;
    const char* text;
  };
  constexpr Row kRows[] = {
      {0.9, 50, 100, ""},
      {10, 0, 100, ""},
      {10, 5, 0, ""},
      {10, 25, 100, "faltan 0:30"},
      {10, 100, 100, "faltan 0:00"},
      {10, 120, 100, "faltan 0:00"},
      {1, 1, 3600, "faltan 59:59"},
      {2, 1, 1801, "faltan 1:00:00"},
      {1e6, 1, 1'000'000'000, "faltan 99:59:59"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(timeLeft(std::chrono::duration<double>(row.seconds), row.done, row.total), row.text);
  }
}

class ScriptedProgressTest : public testing::Test {
 protected:
  void pass(milliseconds time) { now_ += time; }
  [[nodiscard]] std::vector<std::int64_t> shownSteps() const {
    std::vector<std::int64_t> steps;
    for (const ProgressState& state : script_->shown) steps.push_back(state.done);
    return steps;
  }

  std::chrono::steady_clock::time_point now_;
  std::shared_ptr<ProgressScript> script_ = std::make_shared<ProgressScript>();
  Progress progress_{[this] { return std::make_unique<ScriptedProgress>(script_); }, [this] { return now_; }};
};

TEST_F(ScriptedProgressTest, IsShownTenTimesASecondAndAtItsEnd) {
  progress_.setTotal(100);
  EXPECT_TRUE(progress_.Step());
  EXPECT_FALSE(script_->isVisible);
  progress_.Show();
  for (int i = 1; i < 100; ++i) {
    pass(milliseconds(40));
    EXPECT_TRUE(progress_.Step());
  }
  // At 0 and then every third step, for 40 ms are too few and 120 enough; the last one in any case.
  ASSERT_EQ(script_->shown.size(), 34U);
  EXPECT_EQ(shownSteps()[1], 4);
  EXPECT_EQ(shownSteps().back(), 100);
  EXPECT_EQ(script_->shown.back().elapsed, milliseconds(99 * 40));
  progress_.Hide();
  EXPECT_FALSE(script_->isVisible);
}

TEST_F(ScriptedProgressTest, TextsAreShownAsTheyChange) {
  progress_.setTitle("Exportación");
  progress_.setText("clients");
  progress_.Show();
  progress_.setText("pedidos");
  pass(milliseconds(100));
  progress_.setText("pedpar");
  pass(milliseconds(100));
  progress_.setText("pedpar");
  ASSERT_EQ(script_->shown.size(), 2U);
  EXPECT_EQ(script_->shown[0].title, "Exportación");
  EXPECT_EQ(script_->shown[0].text, "clients");
  EXPECT_EQ(script_->shown[1].text, "pedpar");
}

TEST_F(ScriptedProgressTest, CancellingIsToldOnceAndStays) {
  int told = 0;
  progress_.setOnCancel([&told] { ++told; });
  progress_.setTotal(3);
  script_->cancelAt = 1;
  progress_.Show();
  EXPECT_FALSE(progress_.Cancelled());
  for (int i = 0; i < 3; ++i) {
    pass(milliseconds(100));
    EXPECT_FALSE(progress_.Step());
  }
  EXPECT_TRUE(progress_.Cancelled());
  EXPECT_EQ(told, 1);
}

TEST_F(ScriptedProgressTest, NobodyCancelsWhatCannotBe) {
  progress_.setCanCancel(false);
  script_->cancelAt = 0;
  progress_.Show();
  EXPECT_TRUE(progress_.Step());
}

TEST_F(ScriptedProgressTest, GoesWithItsOwner) {
  auto progress = std::make_unique<Progress>([this] { return std::make_unique<ScriptedProgress>(script_); });
  progress->Show();
  EXPECT_TRUE(script_->isVisible);
  progress.reset();
  EXPECT_FALSE(script_->isVisible);
}

TEST(TerminalProgress, IsOneLineThatGoes) {
  std::ostringstream out;
  {
    TerminalProgress view(out);
    EXPECT_FALSE(view.show({.title = "Ventas", .text = "a\nb\x1B", .done = 1, .total = 4}));
    view.show({.title = "Ventas", .text = "a\nb\x1B", .done = 1, .total = 4});
    view.show({.text = "clients", .done = 25, .total = 100, .elapsed = std::chrono::seconds(10)});
    view.show({.text = "clients", .done = 7});
  }
  EXPECT_EQ(out.str(),
            "\r\x1B[KVentas: a b\\x1B  [█████░░░░░░░░░░░░░░░]  25 %"
            "\r\x1B[Kclients  [█████░░░░░░░░░░░░░░░]  25 %, faltan 0:30"
            "\r\x1B[Kclients, 7\r\x1B[K");
}

// Makers are functions, which find what they need here.
std::shared_ptr<ProgressScript>& registeredScript() {
  static std::shared_ptr<ProgressScript> script;
  return script;
}

TEST(DefaultProgress, IsTheRegisteredOneWhereItCanBeMade) {
  registeredScript() = std::make_shared<ProgressScript>();
  registerProgressView([]() -> ProgressViewPtr { return std::make_unique<ScriptedProgress>(registeredScript()); });
  Progress().Show();
  EXPECT_EQ(registeredScript()->shown.size(), 1U);
  registerProgressView([]() -> ProgressViewPtr { return nullptr; });
  EXPECT_NE(defaultProgressView(), nullptr);
  registerProgressView(nullptr);
}

}  // namespace
}  // namespace qvn::dialogs
