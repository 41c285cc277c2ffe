#pragma once

#include <cstdint>

namespace gigeemu {

class IClock {
public:
    virtual ~IClock() = default;
    virtual std::int64_t nowNs() const = 0;
};

} // namespace gigeemu
