#pragma once

#include <Core/Service/IService.h>
#include <Plugin/ProblemAssistant/ISolution.h>

namespace Plugin::ProblemAssistant {

class IProblemAssistantService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    virtual void addSolution(const SolutionPtr& solution) = 0;
};

} // namespace Plugin::ProblemAssistant
