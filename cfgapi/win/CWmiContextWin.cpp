#include "cfgapi/win/CWmiContextWin.h"

#include <objbase.h>

#include <cstdlib>
#include <cstring>

namespace CfgApi {

namespace {

const CLSID kWbemLocatorClass = {0x4590F811, 0x1D3A, 0x11D0, {0x89, 0x1F, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};
const IID kWbemLocatorInterface = {0xDC12A687, 0x737F, 0x11CF, {0x88, 0x4D, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};

} // namespace

CWmiContextWin::~CWmiContextWin()
{
    Close();
}

CWmiContextWin::EOpenResult CWmiContextWin::Open(const wchar_t* className)
{
    CBstrWin nameSpace(L"ROOT\\CIMV2");
    if (FAILED(CoInitialize(nullptr)))
        return eComFailed;
    m_comOpen = true;
    // "Already set" fails too, deliberately: a process that set COM security earlier can't use these calls.
    if (FAILED(CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_DEFAULT,
                                    RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE, nullptr)))
        return eComFailed;
    if (FAILED(CoCreateInstance(kWbemLocatorClass, nullptr, CLSCTX_INPROC_SERVER, kWbemLocatorInterface,
                                m_locator.OutVoid())))
        return eComFailed;
    if (FAILED(m_locator->ConnectServer(nameSpace.Get(), nullptr, nullptr, nullptr, 0, nullptr, nullptr,
                                        m_services.Out())))
        return eComFailed;
    CBstrWin name(className);
    if (m_services->GetObject(name.Get(), 0, nullptr, m_classObject.Out(), nullptr) != WBEM_S_NO_ERROR)
        return eClassFailed;
    return eOpened;
}

void CWmiContextWin::Close()
{
    m_services.Reset();
    m_locator.Reset();
    m_classObject.Reset();
    if (m_comOpen)
        CoUninitialize();
    m_comOpen = false;
}

bool CWmiContextWin::InstancePath(const char* prefix, uint32_t index, CBstrWin& path)
{
    char number[10];
    char narrow[100];
    wchar_t wide[100];
    size_t converted = 0;
    if (_itoa_s(static_cast<int>(index), number, sizeof number, 10) != 0 || strcpy_s(narrow, sizeof narrow, prefix) != 0 ||
        strcat_s(narrow, sizeof narrow, number) != 0 || strcat_s(narrow, sizeof narrow, "'") != 0 ||
        mbstowcs_s(&converted, wide, 100, narrow, _TRUNCATE) != 0)
        return false;
    path.Reset(wide);
    return path.Get() != nullptr;
}

} // namespace CfgApi
