#pragma once

#include <cstdint>
#include <string>

namespace CfgApi {

struct SRegValue
{
    static constexpr uint32_t kString = 1;
    static constexpr uint32_t kBinary = 3;
    static constexpr uint32_t kDword = 4;

    uint32_t type = kString;
    std::string data;
};

} // namespace CfgApi
