#pragma once

#include <stdexcept>

namespace CfgApi {

// Missing elevation; the text is always the same.
class access_error : public std::runtime_error
{
public:
    access_error() : std::runtime_error("Access denied. Try running as an administrator.") {}
};

} // namespace CfgApi
