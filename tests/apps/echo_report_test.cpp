#include "apps/qvn/echo_report.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <vector>

namespace qvn::cli {
namespace {

using std::chrono::microseconds;
using system::EchoReply;
using system::EchoResult;

EchoResult replyAfter(std::int64_t microsecondsCount) {
  return {.reply = EchoReply{0, microseconds(microsecondsCount)}};
}

TEST(EchoText, SaysHowAnEchoWent) {
  struct Row {
    EchoResult result;
    std::string expected;
  };
  const Row rows[] = {
      {replyAfter(0), "respuesta en 0.000 ms"},
      {replyAfter(45), "respuesta en 0.045 ms"},
      {replyAfter(12300), "respuesta en 12.300 ms"},
      {{}, "sin respuesta en 0.5 s"},
      {{EchoReply{11002, {}}}, "red inalcanzable (11002)"},
      {{EchoReply{11003, {}}}, "equipo inalcanzable (11003)"},
      {{EchoReply{11050, {}}}, "rechazado (11050)"},
      {{{}, ENETUNREACH}, "no se envió: no hay camino hacia esa red"},
      {{{}, 4242}, "no se envió: error 4242 del sistema"},
  };
  for (const Row& row : rows) EXPECT_EQ(echoText(row.result, "0.5"), row.expected);
}

TEST(EchoStatistics, CountsWhatWasLostAndHowLongTheRestTook) {
  struct Row {
    std::vector<EchoResult> results;
    bool hasReplies;
    std::string expected;
  };
  const EchoResult lost;
  const EchoResult refused = {.reply = EchoReply{11003, microseconds(9)}};
  const Row rows[] = {
      {{}, false, "0 enviados, 0 recibidos\n"},
      {{lost}, false, "1 enviado, 0 recibidos, 100 % perdido\n"},
      {{refused, lost}, false, "2 enviados, 0 recibidos, 100 % perdido\n"},
      {{replyAfter(2000)},
       true,
       "1 enviado, 1 recibido, 0 % perdido\nmínimo 2.000 ms, medio 2.000 ms, máximo 2.000 ms\n"},
      {{replyAfter(3000), replyAfter(1000), lost},
       true,
       "3 enviados, 2 recibidos, 33.3 % perdido\nmínimo 1.000 ms, medio 2.000 ms, máximo 3.000 ms\n"},
      {{lost, refused, replyAfter(1), replyAfter(2)},
       true,
       "4 enviados, 2 recibidos, 50 % perdido\nmínimo 0.001 ms, medio 0.001 ms, máximo 0.002 ms\n"},
  };
  for (const Row& row : rows) {
    EchoStatistics statistics;
    for (const EchoResult& result : row.results) statistics.add(result);
    EXPECT_EQ(statistics.text(), row.expected);
    EXPECT_EQ(statistics.hasReplies(), row.hasReplies);
  }
}

}  // namespace
}  // namespace qvn::cli
