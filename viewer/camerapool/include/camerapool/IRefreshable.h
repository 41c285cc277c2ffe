#pragma once

namespace CameraPool {

// What the parameter hub needs of a parameter to notify its receivers.
class IRefreshable
{
public:
    virtual ~IRefreshable() = default;
    virtual bool hasReceivers() const = 0;
    // Re-reads the node and emits parameterDataChangedDecoupled when forced or changed.
    virtual void refresh(bool force) = 0;
};

} // namespace CameraPool
