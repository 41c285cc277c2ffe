#pragma once

#include <usbtopology/INode.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace topologytest {

// gtest parameter names from scenario texts.
std::string ScenarioName(std::string strScenario);

const topapi::INode* FindById(const topapi::INode* pNode, const std::wstring& strId);
std::optional<std::int32_t> DeviceCount(const topapi::INode& node);
std::optional<std::uint64_t> Bandwidth(const topapi::INode& node);
std::optional<std::wstring> InstancePath(const topapi::INode& node);

void WriteAttribute(const std::filesystem::path& dir, const std::string& strName, const std::string& strValue);

} // namespace topologytest
