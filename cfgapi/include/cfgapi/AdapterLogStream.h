#pragma once

#include "cfgapi/ILogSink.h"

#include <sstream>

namespace CfgApi {

// Short-lived writer to a sink that may be null; the threshold is asked once.
class AdapterLogStream : public std::ostringstream
{
public:
    explicit AdapterLogStream(ILogSink* sink);
    ~AdapterLogStream() override;

    void Log(uint32_t level, const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 3, 4)))
#endif
        ;
    void SetLineLevel(uint32_t level) { m_lineLevel = level; }
    void Flush();

private:
    bool Passes(uint32_t level) const;

    ILogSink* m_sink;
    int32_t m_threshold = 0;
    uint32_t m_lineLevel = 1;
};

} // namespace CfgApi
