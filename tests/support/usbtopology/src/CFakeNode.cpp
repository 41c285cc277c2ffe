#include <usbtopology/fakes/CFakeNode.h>

#include <utility>

namespace usbtopology::fakes {

CFakeNode::CFakeNode(topapi::ENodeType type, std::wstring strName, std::wstring strId)
    : m_type(type), m_strName(std::move(strName)), m_strId(std::move(strId))
{
}

const topapi::INode* CFakeNode::GetChild(std::size_t index) const
{
    return index < m_children.size() ? m_children[index].get() : nullptr;
}

CFakeNode& CFakeNode::AddChild(topapi::ENodeType type, std::wstring strName, std::wstring strId)
{
    m_children.push_back(std::make_unique<CFakeNode>(type, std::move(strName), std::move(strId)));
    m_children.back()->m_pParent = this;
    return *m_children.back();
}

void CFakeNode::RemoveChild(std::size_t index)
{
    m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(index));
}

CFakeNode& CFakeNode::SetName(std::wstring strName)
{
    m_strName = std::move(strName);
    return *this;
}

CFakeNode& CFakeNode::SetNodeType(topapi::ENodeType type)
{
    m_type = type;
    return *this;
}

CFakeNode& CFakeNode::SetDeviceCount(std::int32_t count)
{
    return SetProperty(topapi::PropertyId_NumberOfU3vDevicesOfSubtree, topapi::CTaggedValue::Int32(count));
}

CFakeNode& CFakeNode::SetBandwidth(std::uint64_t bytesPerSecond)
{
    return SetProperty(topapi::PropertyId_ControllerBandwidth, topapi::CTaggedValue::UInt64(bytesPerSecond));
}

CFakeNode& CFakeNode::SetInstancePath(std::wstring strPath)
{
    return SetProperty(topapi::PropertyId_DeviceInstancePath, topapi::CTaggedValue::WideString(std::move(strPath)));
}

CFakeNode& CFakeNode::SetProperty(std::uint32_t identifier, topapi::CTaggedValue value)
{
    m_properties.Set(identifier, std::move(value));
    return *this;
}

CFakeNode& CFakeNode::RemoveProperty(std::uint32_t identifier)
{
    m_properties.Remove(identifier);
    return *this;
}

} // namespace usbtopology::fakes
