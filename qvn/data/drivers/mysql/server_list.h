// The servers that a connection string names, and how a session finds its way to one of them.
//
//   SERVER=caja1,caja2:3307,[::1]:3308;PORT=3306;Server Order=Random;Connect Timeout=5;Reconnect=Yes
#pragma once

#include <chrono>
#include <vector>

#include "qvn/base/random.h"
#include "qvn/data/driver.h"
#include "qvn/data/drivers/mysql/server_address.h"

namespace qvn::data::mysql {

struct ServerList {
  std::vector<ServerAddress> servers;      ///< never empty; in the order of the text
  bool isRandom = false;                   ///< they are tried in an order drawn anew for each log-in
  std::chrono::seconds connectTimeout{0};  ///< for each of them
  bool reconnects = false;                 ///< a lost session is opened again between two statements
};

/// Throws ProviderError kBadConnectionString for an empty name in the list, a port that is not a number from 1 to
/// 65535, and for values that the options above do not have.
ServerList serverList(const ConnectRequest& request);

/// The servers in the order in which to try them.
std::vector<ServerAddress> tryOrder(const ServerList& list, RandomSource& random);

}  // namespace qvn::data::mysql
