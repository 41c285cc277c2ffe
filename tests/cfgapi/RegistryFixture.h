#pragma once

#include "baselibs/CInMemoryAdapterListSource.h"
#include "cfgapi/CInMemoryElevation.h"
#include "cfgapi/CInMemoryManagementCalls.h"
#include "cfgapi/CInMemoryRegistryView.h"
#include "cfgapi/SPlatform.h"

#include <functional>
#include <string>
#include <vector>

// A Windows-style driver key as the network class holds it.
struct SRegistryFixture
{
    static std::string AdapterPath(const std::string& sub);

    // "*JumboPacket" enum 1514/4088/9014, "*ReceiveBuffers" int 80..2048 step 8,
    // "*InterruptModeration" enum 0/1, "ITR" enum 0/200/65535.
    static void AddIntelAdapter(CfgApi::CInMemoryRegistryView& registry, const std::string& sub,
                                const std::string& guid);
};

// The four seams in memory, with one adapter "{A1}" in key 0007.
struct SFakePlatform
{
    std::shared_ptr<Baselibs::CInMemoryAdapterListSource> adapters =
        std::make_shared<Baselibs::CInMemoryAdapterListSource>();
    std::shared_ptr<CfgApi::CInMemoryRegistryView> registry = std::make_shared<CfgApi::CInMemoryRegistryView>();
    std::shared_ptr<CfgApi::CInMemoryManagementCalls> management =
        std::make_shared<CfgApi::CInMemoryManagementCalls>();
    std::shared_ptr<CfgApi::CInMemoryElevation> elevation = std::make_shared<CfgApi::CInMemoryElevation>(true);
    std::vector<unsigned> sleeps;

    SFakePlatform();
    CfgApi::SPlatform Platform();
};

std::string ThrownText(const std::function<void()>& f);
