#include "LinkStats.h"

#include <sstream>

namespace bwm::link {

std::string SLinkStats::format() const
{
    std::ostringstream out;
    out << "to_host=" << framesToHost << " to_host_bytes=" << bytesToHost
        << " dropped=" << framesDropped << " dropped_bytes=" << bytesDropped
        << " overrun=" << framesOverrun << " too_big=" << framesTooBig
        << " ring_dropped=" << framesRingDropped << " to_cameras=" << framesToCameras
        << " host_write_errors=" << hostWriteErrors << " max_backlog=" << maxBacklogBytes << " at_ns=" << takenAtNs;
    return out.str();
}

} // namespace bwm::link
