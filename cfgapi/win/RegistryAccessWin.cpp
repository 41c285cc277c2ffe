#include "cfgapi/win/RegistryAccessWin.h"

#include <windows.h>

namespace CfgApi {

bool IsWow64ProcessWin()
{
    using IsWow64ProcessFunction = BOOL(WINAPI*)(HANDLE, PBOOL);
    HMODULE kernel = GetModuleHandleA("kernel32");
    if (!kernel)
        return false;
    auto isWow64Process = reinterpret_cast<IsWow64ProcessFunction>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "IsWow64Process")));
    BOOL wow64 = FALSE;
    return isWow64Process && isWow64Process(GetCurrentProcess(), &wow64) && wow64;
}

uint32_t RegistryAccessMaskWin(bool forWrite)
{
    if (IsWow64ProcessWin())
        return forWrite ? 0x2011F : 0x20119;
    return forWrite ? 0x2021F : 0x20219;
}

} // namespace CfgApi
