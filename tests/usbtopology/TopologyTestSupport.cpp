#include "TopologyTestSupport.h"

#include <usbtopology/CTaggedValue.h>
#include <usbtopology/IPropertySet.h>

#include <cctype>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace topologytest {

std::string ScenarioName(std::string strScenario)
{
    for (char& c : strScenario)
        c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return strScenario;
}

const topapi::INode* FindById(const topapi::INode* pNode, const std::wstring& strId)
{
    if (!pNode || pNode->GetId() == strId)
        return pNode;
    for (std::size_t i = 0; i < pNode->GetChildCount(); ++i) {
        if (const topapi::INode* pFound = FindById(pNode->GetChild(i), strId))
            return pFound;
    }
    return nullptr;
}

namespace {

const topapi::CTaggedValue* Property(const topapi::INode& node, std::uint32_t identifier, topapi::ETag tag)
{
    const topapi::CTaggedValue* pValue = node.GetProperties()->GetProperty(identifier);
    if (pValue && pValue->GetTag() != tag)
        throw std::logic_error("property with a wrong tag");
    return pValue;
}

} // namespace

std::optional<std::int32_t> DeviceCount(const topapi::INode& node)
{
    const auto* pValue = Property(node, topapi::PropertyId_NumberOfU3vDevicesOfSubtree, topapi::Tag_Int32);
    return pValue ? std::optional(pValue->GetInt32()) : std::nullopt;
}

std::optional<std::uint64_t> Bandwidth(const topapi::INode& node)
{
    const auto* pValue = Property(node, topapi::PropertyId_ControllerBandwidth, topapi::Tag_UInt64);
    return pValue ? std::optional(pValue->GetUInt64()) : std::nullopt;
}

std::optional<std::wstring> InstancePath(const topapi::INode& node)
{
    const auto* pValue = Property(node, topapi::PropertyId_DeviceInstancePath, topapi::Tag_WideString);
    return pValue ? std::optional<std::wstring>(pValue->GetWideString()) : std::nullopt;
}

void WriteAttribute(const fs::path& dir, const std::string& strName, const std::string& strValue)
{
    fs::create_directories(dir);
    std::ofstream(dir / strName) << strValue << '\n';
}

} // namespace topologytest
