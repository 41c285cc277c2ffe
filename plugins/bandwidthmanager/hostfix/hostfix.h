#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace HostFix {

// The kinds of change a host check can make; each has a privileged helper and a polkit action of its own.
enum class EKind
{
    RmemMax,
    RxRing,
    Mtu,
    RpFilter,
    Coalescing
};

// Adaptive receive coalescing, for a Coalescing fix's value.
constexpr int64_t Adaptive = -1;

struct SFix
{
    EKind kind = EKind::RmemMax;
    // Empty for RmemMax.
    std::string interfaceName;
    int64_t value = 0;
};

// The helper's command word ("rmem-max", "rx-ring", "mtu", "rp-filter", "coalescing").
const char* commandOf(EKind kind);
// The helper program of a kind: bwm-fix-<command>.
std::string helperName(EKind kind);
// The helper's arguments after its name.
std::vector<std::string> helperArguments(const SFix& fix);
// What a user runs as root to make the same change now.
std::string rootCommand(const SFix& fix);

// Reads a helper's arguments strictly: its own command only, an interface name
// of the kernel's characters, a decimal value. False and the reason otherwise.
bool parseArguments(EKind kind, const std::vector<std::string>& arguments, SFix& fix, std::string& error);
// A name the kernel accepts for an interface: 1 to 15 characters, no '/', no
// white space, not "." or "..". Checked before any path is made of it.
bool isInterfaceName(const std::string& name);

} // namespace HostFix
