#pragma once

#include "cfgapi/IElevation.h"
#include "cfgapi/IRegistryView.h"
#include "cfgapi/linux/ILinkOps.h"

#include <memory>

namespace CfgApi {

// Driver settings of the caller's network namespace laid out as the network
// class key: one sub-key per link ("%04u" of its ifindex) with MTU, rx ring
// and rx coalescing as "*JumboPacket", "*ReceiveBuffers",
// "*InterruptModeration" and "ITR", and their ranges under "Ndi\Params".
class CKernelRegistryView : public IRegistryView
{
public:
    CKernelRegistryView(std::shared_ptr<ILinkOps> links, std::shared_ptr<IElevation> elevation);

    uint32_t OpenKey(const std::string& path, bool forWrite) override;
    uint32_t SubKeys(const std::string& path, std::vector<std::string>& names) override;
    uint32_t Values(const std::string& path, std::vector<std::pair<std::string, SRegValue>>& values) override;
    uint32_t GetValue(const std::string& path, const std::string& name, SRegValue& value) override;
    uint32_t SetValue(const std::string& path, const std::string& name, const SRegValue& value) override;

private:
    struct SKey
    {
        std::vector<std::string> subKeys;
        std::vector<std::pair<std::string, SRegValue>> values;
    };
    struct SLinkSettings;

    uint32_t Build(const std::string& path, SKey& key);
    uint32_t ReadLink(const std::string& component, SLinkOpsLink& link);
    void ReadSettings(const SLinkOpsLink& link, SLinkSettings& settings);
    uint32_t Write(const SLinkOpsLink& link, const std::string& name, uint32_t value);

    std::shared_ptr<ILinkOps> m_links;
    std::shared_ptr<IElevation> m_elevation;
};

} // namespace CfgApi
