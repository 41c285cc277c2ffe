#include "hostfix.h"

#include <cctype>
#include <cstdlib>

namespace HostFix {

namespace {

bool parseDecimal(const std::string& text, int64_t& value)
{
    if (text.empty() || text.size() > 12)
        return false;
    for (char c : text) {
        if (!std::isdigit(static_cast<unsigned char>(c)))
            return false;
    }
    value = std::strtoll(text.c_str(), nullptr, 10);
    return true;
}

} // namespace

const char* commandOf(EKind kind)
{
    switch (kind) {
    case EKind::RmemMax: return "rmem-max";
    case EKind::RxRing: return "rx-ring";
    case EKind::Mtu: return "mtu";
    case EKind::RpFilter: return "rp-filter";
    case EKind::Coalescing: return "coalescing";
    }
    return "";
}

std::string helperName(EKind kind)
{
    return std::string("bwm-fix-") + commandOf(kind);
}

std::vector<std::string> helperArguments(const SFix& fix)
{
    const std::string value = fix.kind == EKind::Coalescing && fix.value == Adaptive ? "adaptive" : std::to_string(fix.value);
    if (fix.kind == EKind::RmemMax)
        return {commandOf(fix.kind), value};
    return {commandOf(fix.kind), fix.interfaceName, value};
}

std::string rootCommand(const SFix& fix)
{
    const std::string value = std::to_string(fix.value);
    switch (fix.kind) {
    case EKind::RmemMax: return "sysctl -w net.core.rmem_max=" + value;
    case EKind::RxRing: return "ethtool -G " + fix.interfaceName + " rx " + value;
    case EKind::Mtu: return "ip link set dev " + fix.interfaceName + " mtu " + value;
    case EKind::RpFilter: return "sysctl -w net.ipv4.conf." + fix.interfaceName + ".rp_filter=" + value;
    case EKind::Coalescing:
        return fix.value == Adaptive ? "ethtool -C " + fix.interfaceName + " adaptive-rx on"
                                     : "ethtool -C " + fix.interfaceName + " adaptive-rx off rx-usecs " + value;
    }
    return {};
}

bool isInterfaceName(const std::string& name)
{
    if (name.empty() || name.size() > 15 || name == "." || name == "..")
        return false;
    for (char c : name) {
        if (c == '/' || c == ':' || std::isspace(static_cast<unsigned char>(c)) || !std::isprint(static_cast<unsigned char>(c)))
            return false;
    }
    return true;
}

bool parseArguments(EKind kind, const std::vector<std::string>& arguments, SFix& fix, std::string& error)
{
    const size_t expected = kind == EKind::RmemMax ? 2 : 3;
    if (arguments.size() != expected || arguments[0] != commandOf(kind)) {
        error = std::string("usage: ") + helperName(kind) + " " + commandOf(kind) +
                (kind == EKind::RmemMax ? " BYTES" : kind == EKind::Coalescing ? " INTERFACE adaptive|MICROSECONDS"
                                                                                : " INTERFACE VALUE");
        return false;
    }
    fix = SFix{kind, {}, 0};
    if (kind != EKind::RmemMax) {
        fix.interfaceName = arguments[1];
        if (!isInterfaceName(fix.interfaceName)) {
            error = "not an interface name: " + fix.interfaceName;
            return false;
        }
    }
    const std::string& value = arguments.back();
    if (kind == EKind::Coalescing && value == "adaptive") {
        fix.value = Adaptive;
        return true;
    }
    if (!parseDecimal(value, fix.value)) {
        error = "not a decimal value: " + value;
        return false;
    }
    return true;
}

} // namespace HostFix
