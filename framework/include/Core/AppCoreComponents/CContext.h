#pragma once

#include <Core/CId.h>

namespace Core::AppCoreComponents {

// Where a command is active; the host has one global context.
class CContext
{
public:
    CContext() = default;
    explicit CContext(const CId& id) : m_id(id) {}

    const CId& id() const { return m_id; }

    friend bool operator==(const CContext& a, const CContext& b) { return a.m_id == b.m_id; }

private:
    CId m_id;
};

} // namespace Core::AppCoreComponents
