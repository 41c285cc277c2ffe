#include "cfgapi/win/CTokenElevationWin.h"

#include <windows.h>

namespace CfgApi {

CTokenElevationWin::CTokenElevationWin() : m_process(GetCurrentProcess()) {}

CTokenElevationWin::CTokenElevationWin(void* process) : m_process(process) {}

bool CTokenElevationWin::IsElevated() const
{
    std::call_once(m_once, [this] {
        HANDLE token = nullptr;
        if (!OpenProcessToken(m_process, TOKEN_QUERY, &token))
            return;
        DWORD elevation = 0;
        DWORD size = 0;
        m_elevated = GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size) && elevation != 0;
        CloseHandle(token);
    });
    return m_elevated;
}

} // namespace CfgApi
