#pragma once

#include <usbtopology/ITopologySource.h>

#include <memory>
#include <string>

namespace topapi {
class INode;
}

namespace procLayer {

// Only the full tree (controllers, hubs, devices) exists.
enum EDetailGrade {
    DetailGrade_Full = 1,
};

enum ETopStatus : unsigned int {
    TopStatus_Ok = 0,
    TopStatus_SourceFailed = 1,
    TopStatus_UnsupportedGrade = 2,
};

enum ETopEvent : unsigned int {
    TopEvent_Refreshed = 1,
};

using TopologyCallback = void (*)(void* pContext, unsigned int uEvent);

// The USB topology of this machine. The five-argument constructor reads
// /sys; the six-argument one takes any source (another sysfs root, a fake).
class CTop {
public:
    CTop(unsigned int* pStatus, EDetailGrade grade, TopologyCallback pCallback, void* pCallbackContext,
         const wchar_t* szName);
    CTop(unsigned int* pStatus, EDetailGrade grade, TopologyCallback pCallback, void* pCallbackContext,
         const wchar_t* szName, std::unique_ptr<usbtopology::ITopologySource> source);
    ~CTop();
    CTop(const CTop&) = delete;
    CTop& operator=(const CTop&) = delete;

    // Refresh on it reports to the callback, if one was given, after a success.
    ITopologyEx* GetITopologyEx();
    // Publishes the last successful reading as the node tree; the nodes of the
    // previous tree die here. False when there is nothing to publish.
    bool SetRootNode(EDetailGrade grade);
    const topapi::INode* GetRootNode() const { return m_root.get(); }
    const std::wstring& GetName() const { return m_strName; }

private:
    class CRefreshNotifier;

    std::unique_ptr<usbtopology::ITopologySource> m_source;
    std::unique_ptr<CRefreshNotifier> m_notifier;
    std::shared_ptr<const topapi::INode> m_root;
    std::wstring m_strName;
};

} // namespace procLayer
