#pragma once

namespace CfgApi {

struct StaticAddressPair
{
    char address[40];
    char mask[40];
};

} // namespace CfgApi
