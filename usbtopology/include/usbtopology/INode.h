#pragma once

#include <usbtopology/TopologyIds.h>

#include <cstddef>
#include <string>

namespace topapi {

class IPropertySet;

// A node of the topology. Every operation is a query; nodes and everything
// they hand out belong to the topology and live until its next SetRootNode.
class INode {
public:
    virtual ~INode() = default;
    virtual std::wstring GetName() const = 0;
    // Stable while the device stays on the same port.
    virtual std::wstring GetId() const = 0;
    virtual ENodeType GetNodeType() const = 0;
    virtual const INode* GetParent() const = 0;
    virtual bool HasChildren() const { return GetChildCount() != 0; }
    virtual std::size_t GetChildCount() const = 0;
    // Null past the end.
    virtual const INode* GetChild(std::size_t index) const = 0;
    virtual const INode* FindChild(const std::wstring& strId) const;
    virtual const IPropertySet* GetProperties() const = 0;
};

} // namespace topapi
