#pragma once

#include <string>

// The key that ties a USB3 Vision camera seen by the camera backend to its
// node in the USB topology. Both sides build it from the string descriptors,
// the only identity that Aravis gives for such a device (vendor = iManufacturer,
// model = iProduct, serial = iSerialNumber):
//
//     U3V\<manufacturer>\<product>\<serial>
//
// Each field is reduced as libusb_get_string_descriptor_ascii does, so that
// sysfs' UTF-8 and Aravis' ASCII give the same text. Two cameras with equal
// strings (no serial, say) share a path.
namespace usbtopology {

// UTF-8 in; each code point below 0x80 stays, each other one becomes '?'
// ("??" above U+FFFF, a UTF-16 surrogate pair); bytes that are not UTF-8 give '?'.
std::string ToDescriptorAscii(const std::string& strUtf8);

// Fields may be UTF-8 or already ASCII. A backslash inside a field becomes '?'
// so that the path always has four parts.
std::wstring BuildUsbInstancePath(const std::string& strManufacturer, const std::string& strProduct,
                                  const std::string& strSerial);

// Paths compare without regard to ASCII case.
bool IsSameUsbInstancePath(const std::wstring& strLeft, const std::wstring& strRight);

} // namespace usbtopology
