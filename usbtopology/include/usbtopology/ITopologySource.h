#pragma once

#include <usbtopology/ITopologyEx.h>

#include <memory>

namespace topapi {
class INode;
}

namespace usbtopology {

// What stands behind procLayer::CTop: the sysfs walk, or a fake in tests.
class ITopologySource : public procLayer::ITopologyEx {
public:
    // The tree of the last successful Refresh, or null before the first.
    virtual std::shared_ptr<const topapi::INode> GetSnapshot() const = 0;
};

} // namespace usbtopology
