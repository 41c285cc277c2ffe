#include <usbtopology/CTop.h>
#include <usbtopology/CSysfsUsbTopology.h>
#include <usbtopology/INode.h>

#include <utility>

namespace procLayer {

class CTop::CRefreshNotifier : public ITopologyEx {
public:
    CRefreshNotifier(ITopologyEx* pSource, TopologyCallback pCallback, void* pContext)
        : m_pSource(pSource), m_pCallback(pCallback), m_pContext(pContext)
    {
    }

    std::wstring GetLastError() const override
    {
        return m_pSource ? m_pSource->GetLastError() : L"No topology source";
    }

    bool Refresh() override
    {
        if (!m_pSource || !m_pSource->Refresh())
            return false;
        if (m_pCallback)
            m_pCallback(m_pContext, TopEvent_Refreshed);
        return true;
    }

private:
    ITopologyEx* m_pSource;
    TopologyCallback m_pCallback;
    void* m_pContext;
};

CTop::CTop(unsigned int* pStatus, EDetailGrade grade, TopologyCallback pCallback, void* pCallbackContext,
           const wchar_t* szName)
    : CTop(pStatus, grade, pCallback, pCallbackContext, szName, std::make_unique<usbtopology::CSysfsUsbTopology>())
{
}

CTop::CTop(unsigned int* pStatus, EDetailGrade grade, TopologyCallback pCallback, void* pCallbackContext,
           const wchar_t* szName, std::unique_ptr<usbtopology::ITopologySource> source)
    : m_source(std::move(source)),
      m_notifier(std::make_unique<CRefreshNotifier>(m_source.get(), pCallback, pCallbackContext)),
      m_strName(szName ? szName : L"")
{
    unsigned int status = TopStatus_Ok;
    if (grade != DetailGrade_Full)
        status = TopStatus_UnsupportedGrade;
    else if (!m_source || !m_source->Refresh())
        status = TopStatus_SourceFailed;
    if (status != TopStatus_UnsupportedGrade)
        SetRootNode(grade);
    if (pStatus)
        *pStatus = status;
}

CTop::~CTop() = default;

ITopologyEx* CTop::GetITopologyEx()
{
    return m_notifier.get();
}

bool CTop::SetRootNode(EDetailGrade grade)
{
    if (grade != DetailGrade_Full || !m_source)
        return false;
    m_root = m_source->GetSnapshot();
    return m_root != nullptr;
}

} // namespace procLayer
