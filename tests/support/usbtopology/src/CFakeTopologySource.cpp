#include <usbtopology/fakes/CFakeTopologySource.h>

#include <utility>

namespace usbtopology::fakes {

CFakeTopologySource::CFakeTopologySource(std::shared_ptr<SFakeTopologyScript> script) : m_script(std::move(script))
{
    ++m_script->sourcesCreated;
    ++m_script->sourcesAlive;
}

CFakeTopologySource::~CFakeTopologySource()
{
    --m_script->sourcesAlive;
}

bool CFakeTopologySource::Refresh()
{
    // CTop's constructor makes the first read.
    const bool construction = !m_constructed;
    m_constructed = true;
    if (!construction)
        ++m_script->refreshes;
    m_snapshot = m_script->root;
    const bool fail = construction ? m_script->failConstruction : m_script->failRefresh;
    m_strLastError = fail ? L"scripted failure" : L"";
    return !fail;
}

std::unique_ptr<procLayer::CTop> MakeFakeTop(unsigned int* pStatus, std::shared_ptr<SFakeTopologyScript> script)
{
    return std::make_unique<procLayer::CTop>(pStatus, procLayer::DetailGrade_Full, nullptr, nullptr, nullptr,
                                             std::make_unique<CFakeTopologySource>(std::move(script)));
}

} // namespace usbtopology::fakes
