#pragma once

#include <cstddef>

namespace Zenta {

// The outcome of one grabbed buffer: whether it is complete, and its size.
class CGrabResultData
{
public:
    CGrabResultData() = default;
    CGrabResultData(bool succeeded, size_t payloadSize) : m_succeeded(succeeded), m_payloadSize(payloadSize) {}

    bool GrabSucceeded() const { return m_succeeded; }
    size_t GetPayloadSize() const { return m_payloadSize; }

private:
    bool m_succeeded = false;
    size_t m_payloadSize = 0;
};

} // namespace Zenta
