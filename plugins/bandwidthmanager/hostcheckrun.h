#pragma once

#include "hostchecks.h"
#include "hostsnapshotreader.h"

class FlatTree;

namespace Plugin::BandwidthManager {

// The GigE cameras of the tree with what the checks need of them: their
// adapter, address and, for a measured camera, its largest packet and the
// receive buffer its stream asks for.
std::vector<SCameraOnHost> camerasOnHost(const FlatTree& model);

// Reads the host and runs every check; takes rateWindowMs to count packets.
std::vector<SHostCheck> checkHost(const FlatTree& model, const CHostSnapshotReader& reader = CHostSnapshotReader(),
                                  int rateWindowMs = 250);

} // namespace Plugin::BandwidthManager
