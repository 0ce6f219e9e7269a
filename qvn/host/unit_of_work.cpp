#include "qvn/host/unit_of_work.h"

#include <algorithm>
#include <optional>
#include <random>
#include <utility>

#include "qvn/data/transaction.h"

namespace qvn::host {
namespace {

using data::ErrorItem;
using data::ProviderError;

bool isConflict(const ProviderError& error) {
  return std::ranges::any_of(error.errors(),
                             [](const ErrorItem& item) { return item.isLockConflict || item.sqlState == "40001"; });
}

bool isLostConnection(const ProviderError& error) {
  return std::ranges::any_of(error.errors(), &ErrorItem::isLostConnection);
}

// The engine looked at the transaction as a whole and refused it.
bool isRefusedCommit(const ProviderError& error) {
  return isConflict(error) || error.number() == data::provider_number::kIntegrityViolation;
}

std::vector<ErrorItem> unknownOutcomeItems(const ProviderError& failure) {
  std::vector<ErrorItem> items = failure.errors();
  if (items.empty()) items.push_back({.number = failure.number(), .description = failure.description()});
  items.front().description =
      "No se sabe si la operación quedó guardada, porque se perdió la respuesta; compruébelo antes de repetirla. " +
      items.front().description;
  return items;
}

void commit(data::Transaction& transaction) {
  try {
    transaction.commit();
  } catch (const ProviderError& error) {
    if (isRefusedCommit(error)) throw;
    throw UnknownOutcome(error);
  }
}

// False when the connection is lost for good: one that the driver does not make anew fails ROLLBACK as well.
bool isTakenBack(data::Connection& connection, std::optional<data::Transaction>& transaction) {
  try {
    if (transaction) {
      transaction->rollBack();
    } else {
      connection.Execute("ROLLBACK");
    }
    return true;
  } catch (const ProviderError&) {
    return false;
  }
}

}  // namespace

UnknownOutcome::UnknownOutcome(const ProviderError& failure) : ProviderError(unknownOutcomeItems(failure)) {}

UnitOfWork::UnitOfWork(data::Connection& connection, RetryPolicy policy)
    : UnitOfWork(connection, policy, systemClock(), pseudoRandom(std::random_device{}())) {}

UnitOfWork::UnitOfWork(data::Connection& connection, RetryPolicy policy, ClockPtr clock, RandomPtr random)
    : connection_(connection), policy_(policy), clock_(std::move(clock)), random_(std::move(random)) {}

void UnitOfWork::run(const std::function<void()>& work) {
  nextPause_ = policy_.firstPause;
  for (int left = policy_.attempts - 1; !attempt(work, left <= 0); --left) pause();
}

bool UnitOfWork::attempt(const std::function<void()>& work, bool isLast) {
  std::optional<data::Transaction> transaction;
  try {
    transaction.emplace(connection_);
    work();
    commit(*transaction);
    return true;
  } catch (const UnknownOutcome&) {
    throw;
  } catch (const ProviderError& error) {
    if (isLast || !(isConflict(error) || isLostConnection(error))) throw;
    const bool needsConnection = transaction || isLostConnection(error);
    if (needsConnection && !isTakenBack(connection_, transaction)) throw;
    return false;
  }
}

void UnitOfWork::pause() {
  const double part = (1 + random_->next()) / 2;
  clock_->sleep(std::chrono::round<std::chrono::milliseconds>(part * nextPause_));
  nextPause_ = std::min(2 * nextPause_, policy_.longestPause);
}

}  // namespace qvn::host
