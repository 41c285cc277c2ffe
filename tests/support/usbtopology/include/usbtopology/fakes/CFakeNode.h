#pragma once

#include <usbtopology/CPropertySet.h>
#include <usbtopology/INode.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace usbtopology::fakes {

// A node built by hand. Setters return the node so trees read top-down:
//   root->AddChild(NodeType_HostController, L"xHCI", L"usb3").SetDeviceCount(1)
//       .AddChild(NodeType_U3vDevice, L"Cam", L"3-1").SetInstancePath(L"U3V\\A\\B\\1");
class CFakeNode : public topapi::INode {
public:
    CFakeNode(topapi::ENodeType type, std::wstring strName, std::wstring strId);
    static std::shared_ptr<CFakeNode> MakeRoot() { return std::make_shared<CFakeNode>(topapi::NodeType_Root, L"USB", L""); }

    std::wstring GetName() const override { return m_strName; }
    std::wstring GetId() const override { return m_strId; }
    topapi::ENodeType GetNodeType() const override { return m_type; }
    const INode* GetParent() const override { return m_pParent; }
    std::size_t GetChildCount() const override { return m_children.size(); }
    const INode* GetChild(std::size_t index) const override;
    const topapi::IPropertySet* GetProperties() const override { return &m_properties; }

    // Gives the new child. Any type may be given, unknown ones included.
    CFakeNode& AddChild(topapi::ENodeType type, std::wstring strName, std::wstring strId);
    CFakeNode& Child(std::size_t index) { return *m_children.at(index); }
    void RemoveChild(std::size_t index);
    CFakeNode& Parent() { return *m_pParent; }

    CFakeNode& SetName(std::wstring strName);
    CFakeNode& SetNodeType(topapi::ENodeType type);
    CFakeNode& SetDeviceCount(std::int32_t count);
    CFakeNode& SetBandwidth(std::uint64_t bytesPerSecond);
    CFakeNode& SetInstancePath(std::wstring strPath);
    // Any identifier with any value, a wrong tag included.
    CFakeNode& SetProperty(std::uint32_t identifier, topapi::CTaggedValue value);
    CFakeNode& RemoveProperty(std::uint32_t identifier);

private:
    topapi::ENodeType m_type;
    std::wstring m_strName;
    std::wstring m_strId;
    CFakeNode* m_pParent = nullptr;
    std::vector<std::unique_ptr<CFakeNode>> m_children;
    topapi::CPropertySet m_properties;
};

} // namespace usbtopology::fakes
