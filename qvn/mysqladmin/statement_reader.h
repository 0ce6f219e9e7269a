// The statements of a dump, one after the other.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "qvn/mysqladmin/dump_stream.h"

namespace qvn::mysqladmin {

class StatementReader {
 public:
  virtual ~StatementReader() = default;
  /// Replaces `statement` by the next one; false at the end of the dump. Throws RuntimeError as its source does.
  virtual bool next(std::string& statement) = 0;
  /// After the end: what was begun and never ended, "" when nothing was.
  [[nodiscard]] virtual const std::string& unfinished() const = 0;
  /// The line, from 1, on which the last statement began.
  [[nodiscard]] virtual std::int64_t line() const = 0;
};

/// By lines, as the library's own dumps are read: lines that begin with "#", one-line comments and empty lines are
/// skipped; every other line begins a statement, which goes on, its trimmed lines joined without anything between them,
/// up to the first line whose last character is ";". Lines end at a line feed, a carriage return before it is dropped,
/// and blanks are spaces. The final ";" belongs to the statement. `source` must outlive the reader.
std::unique_ptr<StatementReader> readByLines(DumpSource& source);

/// By the grammar of the language, as other tools write it: comments ("-- ", "#", "/* */") are dropped outside of
/// quotes, but not those that servers execute; DELIMITER lines change what ends a statement, which does not belong to
/// it. An INSERT or REPLACE of many rows that is longer than `longestInsert` bytes is given in several pieces, cut
/// between rows. Quotes are read with backslash escapes. `source` must outlive the reader.
///
/// next() also throws RuntimeError 5 for an INSERT that would have to be cut and has a clause after its rows.
std::unique_ptr<StatementReader> readByGrammar(DumpSource& source, std::size_t longestInsert);

}  // namespace qvn::mysqladmin
