#pragma once

#include <cstdint>

namespace CfgApi {

// The registry's status codes for a negative errno from the kernel wrappers.
uint32_t StatusFromKernelError(int negativeErrno);

} // namespace CfgApi
