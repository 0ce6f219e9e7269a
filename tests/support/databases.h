// The databases behind engines(): one function for each kind, which fails when its server is not there.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "tests/support/test_database.h"

namespace qvn::test {

/// A name that no other test uses at the same time.
std::string uniqueName();

/// Ends the session from another one of the same database.
std::function<void()> firebirdBreaker(const TestDatabase& database, data::Connection& session);

std::unique_ptr<TestDatabase> sqliteDatabase();
std::unique_ptr<TestDatabase> odbcSqliteDatabase();
std::unique_ptr<TestDatabase> firebirdDatabase();
std::unique_ptr<TestDatabase> firebirdServerDatabase();
std::unique_ptr<TestDatabase> mysqlDatabase();
std::unique_ptr<TestDatabase> odbcMariaDbDatabase();
std::unique_ptr<TestDatabase> tdsDatabase();

}  // namespace qvn::test
