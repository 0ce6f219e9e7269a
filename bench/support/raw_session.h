// A session of an engine's own client library, which runs statements as a program without the library would.
#pragma once

#include <memory>
#include <string>

namespace qvn::bench {

class RawSession {
 public:
  virtual ~RawSession() = default;
  /// Runs one statement; its rows are stepped through, and the first value of each is read. Ends the program with the
  /// engine's words when it fails.
  virtual void run(const std::string& sql) = 0;
};

/// On a database in memory.
std::unique_ptr<RawSession> openRawSqlite();

/// On the server of mysqlConnectionString().
std::unique_ptr<RawSession> openRawMysql();

}  // namespace qvn::bench
