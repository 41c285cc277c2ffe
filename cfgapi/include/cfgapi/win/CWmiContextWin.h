#pragma once

#include "cfgapi/win/CBstrWin.h"
#include "cfgapi/win/TComPtrWin.h"

#include <wbemidl.h>

#include <cstdint>

namespace CfgApi {

// COM opened and one management class of "ROOT\CIMV2" loaded, for one call.
// Everything is released and COM closed again when the context goes.
class CWmiContextWin
{
public:
    enum EOpenResult { eOpened, eComFailed, eClassFailed };

    CWmiContextWin() = default;
    ~CWmiContextWin();
    CWmiContextWin(const CWmiContextWin&) = delete;
    CWmiContextWin& operator=(const CWmiContextWin&) = delete;

    EOpenResult Open(const wchar_t* className);

    IWbemServices* Services() const { return m_services.Get(); }
    IWbemClassObject* ClassObject() const { return m_classObject.Get(); }

    // "<prefix><index>'" as the object path of one instance; false when it can't be made.
    static bool InstancePath(const char* prefix, uint32_t index, CBstrWin& path);

private:
    void Close();

    bool m_comOpen = false;
    TComPtrWin<IWbemLocator> m_locator;
    TComPtrWin<IWbemServices> m_services;
    TComPtrWin<IWbemClassObject> m_classObject;
};

} // namespace CfgApi
