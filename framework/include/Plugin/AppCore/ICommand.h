#pragma once

#include <Core/AppCoreComponents/CContext.h>

class QAction;

namespace Plugin::AppCore {

// An action registered with the menu service under an id.
class ICommand
{
public:
    virtual ~ICommand() = default;
    virtual QAction* action() const = 0;
    virtual Core::CId id() const = 0;
    virtual Core::AppCoreComponents::CContext context() const = 0;
};

} // namespace Plugin::AppCore
