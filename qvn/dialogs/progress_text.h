// How far something has come, in words.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace qvn::dialogs {

/// From 0 to 100; 100 of nothing.
int percentOf(std::int64_t done, std::int64_t total);

/// "documentos de clientes  [██████░░░░░░░░░░░░░░]  31 %".
std::string progressLine(std::string_view label, std::int64_t done, std::int64_t total);

/// "faltan 0:42", or "faltan 1:02:05" from an hour on, when what is left takes as long as what is done did. "" within
/// the first second and while nothing is done or nobody knows the total.
std::string timeLeft(std::chrono::duration<double> elapsed, std::int64_t done, std::int64_t total);

}  // namespace qvn::dialogs
