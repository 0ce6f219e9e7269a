// The modules of the Firebird engine that the client library loads for databases that it opens itself.
#pragma once

namespace qvn::data::firebird {

/// Keeps what is loaded of them until the process has ended. The client library unloads them while the process exits,
/// and threads of the engine that still run, such as one that ends an attachment which was cut off, would lose their
/// code under their feet. To be called while a database is attached; does nothing where no engine is loaded.
void keepEngineLoaded() noexcept;

}  // namespace qvn::data::firebird
