// Benchmarks beside their peers: runs all registered benchmarks in turn and prints how fast each subject is against the
// peer of the same group.
//
// A benchmark is named "group/who", who being "qvn" or a peer, such as "read_sqlite/raw".
#pragma once

namespace qvn::bench {

/// Runs the benchmarks five times in random turns (unless the command line says otherwise), then prints one line per
/// pair from the medians. Returns the program's exit status.
int runBesidePeers(int argc, char** argv);

}  // namespace qvn::bench
