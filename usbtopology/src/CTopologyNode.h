#pragma once

#include <usbtopology/CPropertySet.h>
#include <usbtopology/INode.h>

#include <memory>
#include <string>
#include <vector>

namespace usbtopology {

// The node the sysfs walk builds; frozen once it is handed out.
class CTopologyNode : public topapi::INode {
public:
    CTopologyNode(topapi::ENodeType type, std::wstring strName, std::wstring strId);

    std::wstring GetName() const override { return m_strName; }
    std::wstring GetId() const override { return m_strId; }
    topapi::ENodeType GetNodeType() const override { return m_type; }
    const INode* GetParent() const override { return m_pParent; }
    std::size_t GetChildCount() const override { return m_children.size(); }
    const INode* GetChild(std::size_t index) const override;
    const topapi::IPropertySet* GetProperties() const override { return &m_properties; }

    CTopologyNode& AddChild(std::unique_ptr<CTopologyNode> child);
    CTopologyNode& MutableChild(std::size_t index) { return *m_children[index]; }
    topapi::CPropertySet& MutableProperties() { return m_properties; }

private:
    topapi::ENodeType m_type;
    std::wstring m_strName;
    std::wstring m_strId;
    const CTopologyNode* m_pParent = nullptr;
    std::vector<std::unique_ptr<CTopologyNode>> m_children;
    topapi::CPropertySet m_properties;
};

} // namespace usbtopology
