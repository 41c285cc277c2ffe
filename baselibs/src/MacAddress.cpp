#include "baselibs/MacAddress.h"

#include "baselibs/StdStringPrintf.h"

bool MacAddress::IsEmpty() const
{
    for (uint8_t b : bytes)
        if (b != 0)
            return false;
    return true;
}

std::string MacAddress::ToText(char separator) const
{
    return StdStringXSPrintf("%02X%c%02X%c%02X%c%02X%c%02X%c%02X", bytes[0], separator, bytes[1], separator,
                             bytes[2], separator, bytes[3], separator, bytes[4], separator, bytes[5]);
}
