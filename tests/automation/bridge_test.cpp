#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "qvn/automation/bridge.h"

namespace qvn::automation {
namespace {

// Lines prepared in advance.
class Lines final : public LineChannel {
 public:
  explicit Lines(std::deque<std::string> lines) : lines_(std::move(lines)) {}
  Received read(std::string& line) override {
    if (lines_.empty()) return Received::End;
    line = std::move(lines_.front());
    lines_.pop_front();
    return line == kTooLong ? Received::TooLong : Received::Line;
  }
  void write(std::string_view line) override { written.emplace_back(line); }
  void flush() override {}

  static constexpr std::string_view kTooLong = "(too long)";
  std::vector<std::string> written;

 private:
  std::deque<std::string> lines_;
};

std::vector<std::string> answers(std::deque<std::string> lines) {
  Lines channel(std::move(lines));
  Bridge(channel).run();
  return channel.written;
}

const std::string kMes = R"({"id":9,"op":"Mes","in":{"nMes":3}})";
const std::string kMarzo = R"({"id":9,"out":{"result":"Marzo"}})";

TEST(Bridge, AnswersABadRequestAndGoesOn) {
  struct Row {
    const char* line;
    const char* id;
    int error;
    const char* said;  ///< in the description
  };
  static constexpr Row kRows[] = {
      {"", "null", 5, "JSON"},
      {"hola", "null", 5, "JSON"},
      {"{\"id\":1,\"op\":\"Mes\"", "null", 5, "JSON"},
      {"(too long)", "null", 5, "largo"},
      {"[]", "null", 5, "op"},
      {"7", "null", 5, "op"},
      {R"({"id":[1,"a"]})", R"([1,"a"])", 5, "op"},
      {R"({"id":1,"op":7})", "1", 5, "op"},
      {R"({"id":1,"op":"Nada"})", "1", 438, "Nada"},
      {R"({"id":1,"op":"mes","in":{"nMes":3}})", "1", 438, "mes"},
      {R"({"id":1,"op":"Mes","in":[3]})", "1", 13, "in"},
      {R"({"id":1,"op":"Mes"})", "1", 449, "nMes"},
      {R"({"id":1,"op":"Mes","in":{"nMes":3,"nmes":4}})", "1", 448, "nmes"},
      {R"({"id":1,"op":"Mes","in":{"nMes":"3"}})", "1", 13, "nMes"},
      {R"({"id":1,"op":"Mes","in":{"nMes":true}})", "1", 13, "nMes"},
      {R"({"id":1,"op":"Mes","in":{"nMes":null}})", "1", 13, "nMes"},
      {R"({"id":1,"op":"Mes","in":{"nMes":{"null":true}}})", "1", 94, "nMes"},
      {R"({"id":1,"op":"Mes","in":{"nMes":40000}})", "1", 6, "nMes"},
      {R"({"id":1,"op":"clEmpty","in":{"cDato":5}})", "1", 13, "cDato"},
      {R"({"id":1,"op":"bolInt","in":{"bolValue":1}})", "1", 13, "bolValue"},
      {R"({"id":1,"op":"Dia","in":{"dFecha":"2026-11-23"}})", "1", 13, "dFecha"},
      {R"({"id":1,"op":"Existen","in":{"Tabla":"x","Connection":{"object":4}}})", "1", 91, "Connection"},
      {R"({"id":1,"op":"Recordset.MoveNext","in":{"this":null}})", "1", 91, "this"},
      {R"({"id":1,"op":"Release","in":{"object":1}})", "1", 91, "1"},
      {R"({"id":1,"op":"ShellSortAny","in":{"vArray":[1,2],"SortOrder":2}})", "1", 5, "SortOrder"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.line);
    const auto written = answers({row.line, kMes});
    ASSERT_EQ(written.size(), 2u);
    const std::string head = std::string("{\"id\":") + row.id + ",\"error\":{\"number\":" + std::to_string(row.error) +
                             ",\"description\":\"";
    EXPECT_TRUE(written[0].starts_with(head)) << written[0];
    EXPECT_NE(written[0].find(row.said), std::string::npos) << written[0];
    EXPECT_EQ(written[1], kMarzo);
  }
}

TEST(Bridge, ObjectOfAnotherClassIsNamed) {
  const auto written =
      answers({R"({"op":"Collection.New"})", R"({"op":"LastRec","in":{"strTabla":"x","Connection":{"object":1}}})"});
  ASSERT_EQ(written.size(), 2u);
  EXPECT_NE(written[1].find(R"("number":13)"), std::string::npos) << written[1];
  EXPECT_NE(written[1].find("Connection y llegó uno Collection"), std::string::npos) << written[1];
}

TEST(Bridge, ProviderErrorsAreAnsweredWithTheirList) {
  const auto written =
      answers({R"({"op":"Connection.Open","in":{"ConnectionString":"Provider=SQLite;Data Source=:memory:"}})",
               R"({"op":"Connection.Execute","in":{"this":{"object":1},"CommandText":"SELEC 1"}})"});
  ASSERT_EQ(written.size(), 2u);
  EXPECT_NE(written[1].find(R"("number":-2147217900)"), std::string::npos) << written[1];
  EXPECT_NE(written[1].find(R"("errors":[{"number":-2147217900)"), std::string::npos) << written[1];
}

const std::string kQuestion = R"({"id":1,"op":"Question","in":{"strMensaje":"¿Va?"}})";

TEST(Bridge, QuestionRefusesWhatIsNoAnswer) {
  for (const char* line : {R"({"answer":"si"})", R"({"answer":3})", R"({"answer":1.5})", R"({"answer":null})",
                           R"({"ok":true})", "no", "(too long)", "[]"}) {
    SCOPED_TRACE(line);
    const auto written = answers({kQuestion, line, kMes});
    ASSERT_EQ(written.size(), 3u);
    EXPECT_TRUE(written[1].starts_with(R"({"id":1,"error":{"number":)")) << written[1];
    EXPECT_EQ(written[2], kMarzo);
  }
}

TEST(Bridge, RequestInPlaceOfAnAnswerIsAnsweredAsWell) {
  const auto written = answers({kQuestion, kMes});
  ASSERT_EQ(written.size(), 3u);
  EXPECT_TRUE(written[1].starts_with(R"({"id":1,"error":{"number":13)")) << written[1];
  EXPECT_EQ(written[2], kMarzo);
}

TEST(Bridge, InputThatEndsLeavesTheQuestionUnanswered) {
  const auto written = answers({kQuestion});
  ASSERT_EQ(written.size(), 2u);
  EXPECT_TRUE(written[1].starts_with(R"({"id":1,"error":{"number":62)")) << written[1];
}

// "Si a todo" is the second of four buttons, and must not be what false means.
TEST(Bridge, FalseIsNoInEveryDialog) {
  const auto written = answers({R"({"op":"Question2","in":{"strMensaje":"¿Borrar?"}})", R"({"answer":false})"});
  ASSERT_EQ(written.size(), 2u);
  EXPECT_EQ(written[1], R"({"id":null,"out":{"result":3}})");
}

TEST(Bridge, SameObjectKeepsItsNumberUntilItIsReleased) {
  const auto written =
      answers({R"({"op":"Ambiente.New"})", R"({"op":"Ambiente.Sesion","in":{"this":{"object":1}}})",
               R"({"op":"Ambiente.Sesion","in":{"this":{"object":1}}})", R"({"op":"Release","in":{"object":2}})",
               R"({"op":"Ambiente.Sesion","in":{"this":{"object":1}}})"});
  ASSERT_EQ(written.size(), 5u);
  EXPECT_EQ(written[1], written[2]);
  EXPECT_EQ(written[4], R"({"id":null,"out":{"result":{"object":3}}})");
}

}  // namespace
}  // namespace qvn::automation
