#pragma once

namespace CfgApi {

// Sole owner of one COM reference: released when the holder goes, on every path.
template <class T>
class TComPtrWin
{
public:
    TComPtrWin() = default;
    ~TComPtrWin() { Reset(); }
    TComPtrWin(const TComPtrWin&) = delete;
    TComPtrWin& operator=(const TComPtrWin&) = delete;

    T* Get() const { return m_pointer; }
    T* operator->() const { return m_pointer; }
    explicit operator bool() const { return m_pointer != nullptr; }

    // For the out-parameter of a call; whatever was held is released first.
    T** Out()
    {
        Reset();
        return &m_pointer;
    }
    void** OutVoid() { return reinterpret_cast<void**>(Out()); }

    void Reset()
    {
        if (m_pointer)
            m_pointer->Release();
        m_pointer = nullptr;
    }

private:
    T* m_pointer = nullptr;
};

} // namespace CfgApi
