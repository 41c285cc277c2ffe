#pragma once

#include <Zenta/CGrabResultData.h>

#include <QMetaType>

namespace Zenta {

// Held by value so that handing a result to the grab handler allocates nothing.
class CGrabResultPtr
{
public:
    CGrabResultPtr() = default;
    explicit CGrabResultPtr(const CGrabResultData& data) : m_data(data), m_valid(true) {}

    const CGrabResultData* operator->() const { return &m_data; }
    const CGrabResultData& operator*() const { return m_data; }
    bool IsValid() const { return m_valid; }
    explicit operator bool() const { return m_valid; }

private:
    CGrabResultData m_data;
    bool m_valid = false;
};

} // namespace Zenta

Q_DECLARE_METATYPE(Zenta::CGrabResultPtr)
