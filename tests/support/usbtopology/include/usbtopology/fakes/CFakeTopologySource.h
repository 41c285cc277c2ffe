#pragma once

#include <usbtopology/CTop.h>
#include <usbtopology/ITopologySource.h>
#include <usbtopology/fakes/SFakeTopologyScript.h>

#include <memory>

namespace usbtopology::fakes {

class CFakeTopologySource : public ITopologySource {
public:
    explicit CFakeTopologySource(std::shared_ptr<SFakeTopologyScript> script);
    ~CFakeTopologySource() override;

    std::wstring GetLastError() const override { return m_strLastError; }
    bool Refresh() override;
    std::shared_ptr<const topapi::INode> GetSnapshot() const override { return m_snapshot; }

private:
    std::shared_ptr<SFakeTopologyScript> m_script;
    std::shared_ptr<const topapi::INode> m_snapshot;
    std::wstring m_strLastError;
    bool m_constructed = false;
};

// A CTop as the device tree makes it (grade 1, no callback) over the script.
std::unique_ptr<procLayer::CTop> MakeFakeTop(unsigned int* pStatus, std::shared_ptr<SFakeTopologyScript> script);

} // namespace usbtopology::fakes
