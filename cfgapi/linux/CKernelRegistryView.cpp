#include "cfgapi/linux/CKernelRegistryView.h"

#include "cfgapi/CNetworkAdapter.h"
#include "cfgapi/RegistryKey.h"
#include "cfgapi/linux/KernelStatus.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace CfgApi {

namespace {

constexpr uint32_t kAdaptiveItr = 65535;
constexpr uint32_t kModerationFallbackUsecs = 50;
constexpr uint32_t kRingMinimum = 64;
constexpr uint32_t kRingStep = 8;

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

bool Same(const std::string& a, const std::string& b)
{
    return Lower(a) == Lower(b);
}

std::vector<std::string> Split(const std::string& path)
{
    std::vector<std::string> parts;
    size_t start = 0;
    while (start <= path.size()) {
        const size_t end = path.find('\\', start);
        parts.push_back(path.substr(start, end == std::string::npos ? std::string::npos : end - start));
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return parts;
}

SRegValue Text(const std::string& text)
{
    return SRegValue{SRegValue::kString, text};
}

bool ParseDecimal(const SRegValue& value, uint32_t& number)
{
    if (value.type != SRegValue::kString || value.data.empty() || !std::isdigit(static_cast<unsigned char>(value.data[0])))
        return false;
    char* end = nullptr;
    errno = 0;
    const unsigned long parsed = std::strtoul(value.data.c_str(), &end, 10);
    if (errno != 0 || *end != '\0' || parsed > UINT32_MAX)
        return false;
    number = static_cast<uint32_t>(parsed);
    return true;
}

void AddUnique(std::vector<uint32_t>& values, uint32_t v)
{
    if (std::find(values.begin(), values.end(), v) == values.end())
        values.push_back(v);
}

} // namespace

struct CKernelRegistryView::SLinkSettings
{
    std::vector<uint32_t> mtus;
    bool hasRing = false;
    Baselibs::SRxRing ring;
    bool hasCoalesce = false;
    Baselibs::SRxCoalesce coalesce;
};

CKernelRegistryView::CKernelRegistryView(std::shared_ptr<ILinkOps> links, std::shared_ptr<IElevation> elevation)
    : m_links(std::move(links)), m_elevation(std::move(elevation))
{
}

uint32_t CKernelRegistryView::ReadLink(const std::string& component, SLinkOpsLink& link)
{
    if (component.empty() || component.find_first_not_of("0123456789") != std::string::npos || component.size() > 9)
        return RegistryKey::kFileNotFound;
    const int index = std::atoi(component.c_str());
    std::vector<SLinkOpsLink> links;
    if (int rc = m_links->Links(links))
        return StatusFromKernelError(rc);
    for (const SLinkOpsLink& l : links) {
        if (l.index == index) {
            link = l;
            return RegistryKey::kSuccess;
        }
    }
    return RegistryKey::kFileNotFound;
}

void CKernelRegistryView::ReadSettings(const SLinkOpsLink& link, SLinkSettings& settings)
{
    // The current MTU is always allowed, so a read never finds it outside its set.
    settings.mtus.push_back(link.mtu);
    uint32_t minMtu = 0;
    uint32_t maxMtu = 0;
    if (m_links->MtuRange(link.index, minMtu, maxMtu) == 0) {
        for (uint32_t v : {1500u, 9000u})
            if (v >= minMtu && v <= maxMtu)
                AddUnique(settings.mtus, v);
        if (maxMtu < 9000 && maxMtu >= minMtu)
            AddUnique(settings.mtus, maxMtu);
    }
    std::sort(settings.mtus.begin(), settings.mtus.end());
    settings.hasRing = m_links->GetRxRing(link.name, settings.ring) == 0;
    settings.hasCoalesce = m_links->GetRxCoalesce(link.name, settings.coalesce) == 0;
}

uint32_t CKernelRegistryView::Build(const std::string& path, SKey& key)
{
    const std::vector<std::string> parts = Split(path);
    const std::vector<std::string> classParts = Split(CNetworkAdapter::kClassKey);
    if (parts.size() < classParts.size())
        return RegistryKey::kFileNotFound;
    for (size_t i = 0; i < classParts.size(); ++i)
        if (!Same(parts[i], classParts[i]))
            return RegistryKey::kFileNotFound;
    const std::vector<std::string> rest(parts.begin() + classParts.size(), parts.end());

    if (rest.empty()) {
        std::vector<SLinkOpsLink> links;
        if (int rc = m_links->Links(links))
            return StatusFromKernelError(rc);
        std::sort(links.begin(), links.end(), [](const auto& a, const auto& b) { return a.index < b.index; });
        for (const SLinkOpsLink& l : links) {
            char name[16];
            std::snprintf(name, sizeof name, "%04u", static_cast<unsigned>(l.index));
            key.subKeys.push_back(name);
        }
        return RegistryKey::kSuccess;
    }

    SLinkOpsLink link;
    if (uint32_t status = ReadLink(rest[0], link))
        return status;
    SLinkSettings s;
    ReadSettings(link, s);
    std::vector<std::string> params = {"*JumboPacket"};
    if (s.hasRing)
        params.push_back("*ReceiveBuffers");
    if (s.hasCoalesce) {
        params.push_back("*InterruptModeration");
        params.push_back("ITR");
    }

    if (rest.size() == 1) {
        key.subKeys = {"Ndi"};
        key.values = {{"NetCfgInstanceId", Text(link.name)},
                      {"DriverDesc", Text(link.description)},
                      {"*JumboPacket", Text(std::to_string(link.mtu))}};
        if (s.hasRing)
            key.values.emplace_back("*ReceiveBuffers", Text(std::to_string(s.ring.current)));
        if (s.hasCoalesce) {
            const bool on = s.coalesce.adaptive || s.coalesce.usecs > 0;
            key.values.emplace_back("*InterruptModeration", Text(on ? "1" : "0"));
            key.values.emplace_back("ITR", Text(std::to_string(s.coalesce.adaptive ? kAdaptiveItr : s.coalesce.usecs)));
        }
        return RegistryKey::kSuccess;
    }
    if (!Same(rest[1], "Ndi"))
        return RegistryKey::kFileNotFound;
    if (rest.size() == 2) {
        key.subKeys = {"Params"};
        return RegistryKey::kSuccess;
    }
    if (!Same(rest[2], "Params"))
        return RegistryKey::kFileNotFound;
    if (rest.size() == 3) {
        key.subKeys = params;
        return RegistryKey::kSuccess;
    }
    auto param = std::find_if(params.begin(), params.end(), [&](const std::string& p) { return Same(p, rest[3]); });
    if (param == params.end() || rest.size() > 5)
        return RegistryKey::kFileNotFound;

    std::vector<std::pair<std::string, SRegValue>> enumValues;
    if (*param == "*JumboPacket") {
        for (uint32_t v : s.mtus)
            enumValues.emplace_back(std::to_string(v), Text(std::to_string(v)));
    } else if (*param == "*InterruptModeration") {
        enumValues = {{"0", Text("Disabled")}, {"1", Text("Enabled")}};
    } else if (*param == "ITR") {
        std::vector<uint32_t> itrs = {0, 25, 50, 100, 200};
        if (!s.coalesce.adaptive)
            AddUnique(itrs, s.coalesce.usecs);
        std::sort(itrs.begin(), itrs.end());
        for (uint32_t v : itrs)
            enumValues.emplace_back(std::to_string(v), Text(std::to_string(v)));
        if (s.coalesce.adaptive)
            enumValues.emplace_back(std::to_string(kAdaptiveItr), Text("Adaptive"));
    }

    if (rest.size() == 5) {
        if (!Same(rest[4], "Enum") || enumValues.empty())
            return RegistryKey::kFileNotFound;
        key.values = enumValues;
        return RegistryKey::kSuccess;
    }
    key.values.emplace_back("ParamDesc", Text(*param));
    if (enumValues.empty()) {
        const uint32_t minimum = std::min(kRingMinimum, s.ring.maximum);
        key.values.emplace_back("Type", Text("int"));
        key.values.emplace_back("min", Text(std::to_string(minimum)));
        key.values.emplace_back("max", Text(std::to_string(s.ring.maximum)));
        key.values.emplace_back("step", Text(std::to_string(kRingStep)));
    } else {
        key.subKeys = {"Enum"};
        key.values.emplace_back("Type", Text("enum"));
    }
    return RegistryKey::kSuccess;
}

uint32_t CKernelRegistryView::OpenKey(const std::string& path, bool forWrite)
{
    SKey key;
    if (uint32_t status = Build(path, key))
        return status;
    if (forWrite && !m_elevation->IsElevated())
        return RegistryKey::kAccessDenied;
    return RegistryKey::kSuccess;
}

uint32_t CKernelRegistryView::SubKeys(const std::string& path, std::vector<std::string>& names)
{
    SKey key;
    if (uint32_t status = Build(path, key))
        return status;
    names = key.subKeys;
    return RegistryKey::kSuccess;
}

uint32_t CKernelRegistryView::Values(const std::string& path, std::vector<std::pair<std::string, SRegValue>>& values)
{
    SKey key;
    if (uint32_t status = Build(path, key))
        return status;
    values = key.values;
    return RegistryKey::kSuccess;
}

uint32_t CKernelRegistryView::GetValue(const std::string& path, const std::string& name, SRegValue& value)
{
    SKey key;
    if (uint32_t status = Build(path, key))
        return status;
    for (const auto& entry : key.values) {
        if (Same(entry.first, name)) {
            value = entry.second;
            return RegistryKey::kSuccess;
        }
    }
    return RegistryKey::kFileNotFound;
}

uint32_t CKernelRegistryView::SetValue(const std::string& path, const std::string& name, const SRegValue& value)
{
    const std::vector<std::string> parts = Split(path);
    SKey key;
    if (uint32_t status = Build(path, key))
        return status;
    if (parts.size() != Split(CNetworkAdapter::kClassKey).size() + 1 || !m_elevation->IsElevated())
        return RegistryKey::kAccessDenied;
    SLinkOpsLink link;
    if (uint32_t status = ReadLink(parts.back(), link))
        return status;
    uint32_t number = 0;
    const bool writable = Same(name, "*JumboPacket") || Same(name, "*ReceiveBuffers") ||
                          Same(name, "*InterruptModeration") || Same(name, "ITR");
    if (!writable)
        return RegistryKey::kAccessDenied;
    if (!ParseDecimal(value, number))
        return RegistryKey::kInvalidData;
    return Write(link, Lower(name), number);
}

uint32_t CKernelRegistryView::Write(const SLinkOpsLink& link, const std::string& name, uint32_t value)
{
    if (name == "*jumbopacket")
        return StatusFromKernelError(m_links->SetMtu(link.index, value));
    if (name == "*receivebuffers")
        return StatusFromKernelError(m_links->SetRxRing(link.name, value));

    Baselibs::SRxCoalesce coalesce;
    if (int rc = m_links->GetRxCoalesce(link.name, coalesce))
        return StatusFromKernelError(rc);
    if (name == "*interruptmoderation") {
        if (value > 1)
            return RegistryKey::kInvalidData;
        if (value == 0) {
            coalesce = Baselibs::SRxCoalesce{false, 0};
            return StatusFromKernelError(m_links->SetRxCoalesce(link.name, coalesce));
        }
        coalesce.adaptive = true;
        int rc = m_links->SetRxCoalesce(link.name, coalesce);
        if (rc == -EOPNOTSUPP || rc == -EINVAL) {
            // Drivers without adaptive moderation still take a fixed delay.
            coalesce = Baselibs::SRxCoalesce{false, kModerationFallbackUsecs};
            rc = m_links->SetRxCoalesce(link.name, coalesce);
        }
        return StatusFromKernelError(rc);
    }
    if (value == kAdaptiveItr)
        coalesce.adaptive = true;
    else
        coalesce = Baselibs::SRxCoalesce{false, value};
    return StatusFromKernelError(m_links->SetRxCoalesce(link.name, coalesce));
}

} // namespace CfgApi
