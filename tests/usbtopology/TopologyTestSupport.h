#pragma once

#include <usbtopology/INode.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace topologytest {

class CTempDir {
public:
    CTempDir();
    ~CTempDir();
    CTempDir(const CTempDir&) = delete;
    CTempDir& operator=(const CTempDir&) = delete;
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

const topapi::INode* FindById(const topapi::INode* pNode, const std::wstring& strId);
std::optional<std::int32_t> DeviceCount(const topapi::INode& node);
std::optional<std::uint64_t> Bandwidth(const topapi::INode& node);
std::optional<std::wstring> InstancePath(const topapi::INode& node);

void WriteAttribute(const std::filesystem::path& dir, const std::string& strName, const std::string& strValue);

} // namespace topologytest
