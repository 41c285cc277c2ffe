// bwm-fix-<kind>: one kind of host change, run as root through pkexec under the
// polkit action of that kind. Takes its own command only, checks every
// argument against the kernel, applies the change live and keeps a sysctl for
// the next start. Exit status: 0 done, 1 refused by the kernel, 2 bad use.
#include "hostfix.h"
#include "hostfixapplier.h"

#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    const HostFix::EKind kind = BWM_FIX_KIND;
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    HostFix::SFix fix;
    std::string error;
    if (!HostFix::parseArguments(kind, arguments, fix, error)) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 2;
    }
    const HostFix::CHostFixApplier applier;
    if (!applier.validate(fix, error)) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 2;
    }
    if (!applier.apply(fix, error)) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    std::printf("%s\n", applier.persist(fix, error) ? "kept for the next start" : error.c_str());
    return 0;
}
