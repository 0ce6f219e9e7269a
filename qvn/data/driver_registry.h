// The drivers that this process can connect with.
#pragma once

#include <memory>

#include "qvn/data/driver.h"

namespace qvn::data {

/// Adds a driver. Among drivers that accept a connection string the one added last is taken; a second driver of the
/// same name takes the place of the first.
void registerDriver(std::shared_ptr<const Driver> driver);

/// The driver for a connection string. Throws ProviderError kNoSuchProvider, naming the drivers that there are.
std::shared_ptr<const Driver> findDriver(const ConnectionString& parameters);

}  // namespace qvn::data
