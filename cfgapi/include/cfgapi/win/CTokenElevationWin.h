#pragma once

#include "cfgapi/IElevation.h"

#include <mutex>

namespace CfgApi {

// TokenElevation of a process's token, read once on first use; false when it
// can't be read. The process handle defaults to the caller's own.
class CTokenElevationWin : public IElevation
{
public:
    CTokenElevationWin();
    explicit CTokenElevationWin(void* process);

    bool IsElevated() const override;

private:
    void* m_process;
    mutable std::once_flag m_once;
    mutable bool m_elevated = false;
};

} // namespace CfgApi
