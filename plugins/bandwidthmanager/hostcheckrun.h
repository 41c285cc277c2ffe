#pragma once

#include "hostchecks.h"
#include "hostsnapshotreader.h"

#include <functional>

class FlatTree;

namespace Plugin::BandwidthManager {

// The GigE cameras of the tree with what the checks need of them: their
// adapter, address and, for a measured camera, its largest packet and the
// receive buffer its stream asks for.
std::vector<SCameraOnHost> camerasOnHost(const FlatTree& model);

// The checks as a task: the cameras are read from the tree now, on the
// tree's thread; the host when the task runs, on any thread (it waits a
// quarter of a second to count packets).
std::function<std::vector<SHostCheck>()> hostCheckTask(const FlatTree& model);

} // namespace Plugin::BandwidthManager
