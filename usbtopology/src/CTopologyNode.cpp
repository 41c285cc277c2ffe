#include "CTopologyNode.h"

#include <utility>

namespace usbtopology {

CTopologyNode::CTopologyNode(topapi::ENodeType type, std::wstring strName, std::wstring strId)
    : m_type(type), m_strName(std::move(strName)), m_strId(std::move(strId))
{
}

const topapi::INode* CTopologyNode::GetChild(std::size_t index) const
{
    return index < m_children.size() ? m_children[index].get() : nullptr;
}

CTopologyNode& CTopologyNode::AddChild(std::unique_ptr<CTopologyNode> child)
{
    child->m_pParent = this;
    m_children.push_back(std::move(child));
    return *m_children.back();
}

} // namespace usbtopology
