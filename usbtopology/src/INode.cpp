#include <usbtopology/INode.h>

namespace topapi {

const INode* INode::FindChild(const std::wstring& strId) const
{
    for (std::size_t i = 0; i < GetChildCount(); ++i) {
        const INode* pChild = GetChild(i);
        if (pChild && pChild->GetId() == strId)
            return pChild;
    }
    return nullptr;
}

} // namespace topapi
