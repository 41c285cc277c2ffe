#pragma once

#include <Core/AppCoreComponents/CContext.h>
#include <Core/Service/IService.h>
#include <Plugin/AppCore/IActionContainer.h>
#include <Plugin/AppCore/ICommand.h>

class QAction;

namespace Plugin::AppCore {

class IMenuService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    // The command stays the service's; it lives as long as the service.
    virtual ICommand* registerAction(QAction* action, const Core::CId& id,
                                     const Core::AppCoreComponents::CContext& context) = 0;
    // The menu with that id, or null.
    virtual IActionContainer* actionContainer(const Core::CId& id) const = 0;
};

} // namespace Plugin::AppCore
