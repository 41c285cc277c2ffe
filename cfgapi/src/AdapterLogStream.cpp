#include "cfgapi/AdapterLogStream.h"

#include "baselibs/StdStringPrintf.h"

#include <cstdarg>

namespace CfgApi {

AdapterLogStream::AdapterLogStream(ILogSink* sink) : m_sink(sink)
{
    if (m_sink)
        m_threshold = m_sink->GetLevel();
}

AdapterLogStream::~AdapterLogStream()
{
    try {
        Flush();
    } catch (...) {
    }
}

bool AdapterLogStream::Passes(uint32_t level) const
{
    return m_sink && static_cast<int64_t>(m_threshold) <= static_cast<int64_t>(level);
}

void AdapterLogStream::Log(uint32_t level, const char* format, ...)
{
    if (!Passes(level))
        return;
    va_list args;
    va_start(args, format);
    std::string text;
    try {
        text = StdStringVSPrintf(format, args);
    } catch (...) {
        va_end(args);
        throw;
    }
    va_end(args);
    m_sink->Write(level, text.c_str());
}

void AdapterLogStream::Flush()
{
    std::string text = str();
    if (text.empty())
        return;
    str(std::string());
    if (text.back() == '\n')
        text.pop_back();
    if (Passes(m_lineLevel))
        m_sink->Write(m_lineLevel, text.c_str());
}

} // namespace CfgApi
