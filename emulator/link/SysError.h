#pragma once

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace bwm::link {

inline std::runtime_error sysError(const std::string& what)
{
    return std::runtime_error(what + ": " + std::strerror(errno));
}

} // namespace bwm::link
