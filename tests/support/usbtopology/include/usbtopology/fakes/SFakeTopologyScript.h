#pragma once

#include <usbtopology/fakes/CFakeNode.h>

#include <memory>

namespace usbtopology::fakes {

// What a fake topology serves, and what it saw. Shared by the test and every
// source made from it; the test may change it between builds.
struct SFakeTopologyScript {
    // Served at every read, failed or not; null gives a null root node.
    std::shared_ptr<CFakeNode> root = CFakeNode::MakeRoot();
    bool failConstruction = false; // the read inside CTop's constructor fails
    bool failRefresh = false;      // every later read fails
    int sourcesCreated = 0;
    int sourcesAlive = 0;
    int refreshes = 0; // reads after construction
};

} // namespace usbtopology::fakes
