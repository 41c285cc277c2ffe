#pragma once

#include <cstdint>

namespace CfgApi {

// IsWow64Process looked up in kernel32 at run time; missing counts as no.
bool IsWow64ProcessWin();

// Under WOW64 the 64-bit view, otherwise the flag of the 32-bit view, which
// leaves the keys below HKEY_LOCAL_MACHINE\SYSTEM as they are.
uint32_t RegistryAccessMaskWin(bool forWrite);

} // namespace CfgApi
