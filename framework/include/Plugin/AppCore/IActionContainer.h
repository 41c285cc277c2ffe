#pragma once

#include <Core/CId.h>

namespace Plugin::AppCore {

class ICommand;

// A menu of the host, made of groups.
class IActionContainer
{
public:
    virtual ~IActionContainer() = default;
    virtual Core::CId id() const = 0;
    // Appends the command to the group.
    virtual void addCommand(ICommand* command, const Core::CId& group) = 0;
};

} // namespace Plugin::AppCore
