#pragma once

#include <windows.h>
#include <oleauto.h>

namespace CfgApi {

// A BSTR freed on every path.
class CBstrWin
{
public:
    CBstrWin() = default;
    explicit CBstrWin(const wchar_t* text) : m_text(SysAllocString(text)) {}
    ~CBstrWin() { SysFreeString(m_text); }
    CBstrWin(const CBstrWin&) = delete;
    CBstrWin& operator=(const CBstrWin&) = delete;

    void Reset(const wchar_t* text)
    {
        SysFreeString(m_text);
        m_text = SysAllocString(text);
    }
    BSTR Get() const { return m_text; }

private:
    BSTR m_text = nullptr;
};

} // namespace CfgApi
