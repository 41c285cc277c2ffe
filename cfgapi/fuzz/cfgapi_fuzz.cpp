// Address parser and driver-value parsing on arbitrary text. Only the
// documented exceptions may leave; anything else aborts the run.
#include "baselibs/IPv4Configuration.h"
#include "cfgapi/CDriverEnumParameter.h"
#include "cfgapi/CInMemoryRegistryView.h"
#include "cfgapi/CIntelItrEnumParameter.h"

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace {

const std::string kKey = "SYSTEM\\CurrentControlSet\\Control\\Class\\{4d36e972-e325-11ce-bfc1-08002be10318}\\0007";

// Splits the input on NUL bytes into up to eight texts.
std::string Take(const uint8_t*& data, size_t& size)
{
    size_t n = 0;
    while (n < size && data[n] != 0)
        ++n;
    std::string text(reinterpret_cast<const char*>(data), n);
    const size_t used = n < size ? n + 1 : n;
    data += used;
    size -= used;
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const uint8_t selector = data[0];
    ++data;
    --size;

    const std::string address = Take(data, size);
    try {
        IPv4Configuration config(address, static_cast<uint8_t>(selector % 40));
        (void)config.ToText();
        (void)config.IsSameSubnet(IPv4Configuration(address, static_cast<uint8_t>(selector % 33)));
    } catch (const std::invalid_argument&) {
    }

    auto registry = std::make_shared<CfgApi::CInMemoryRegistryView>();
    const std::string params = kKey + "\\Ndi\\Params\\P";
    const std::string itrParams = kKey + "\\Ndi\\Params\\ITR";
    static const char* const kTypes[] = {"enum", "DWORD", "int", "long", "word", "other"};
    const char* const names[] = {"base", "default", "min", "max"};
    std::string texts[4];
    for (std::string& t : texts)
        t = Take(data, size);
    std::string enumNames[3];
    for (std::string& t : enumNames)
        t = Take(data, size);
    const std::string current = Take(data, size);
    for (const std::string& path : {params, itrParams}) {
        registry->SetString(path, "Type", kTypes[selector % 6]);
        for (int i = 0; i < 4; ++i)
            registry->SetString(path, names[i], texts[i]);
        for (const std::string& e : enumNames)
            registry->SetString(path + "\\Enum", e, "x");
    }
    registry->SetString(kKey, "P", current);
    registry->SetString(kKey, "ITR", current);

    CfgApi::CIntelItrEnumParameter itr(registry);
    CfgApi::CDriverEnumParameter p("P", registry);
    for (CfgApi::CDriverEnumParameter* parameter : {static_cast<CfgApi::CDriverEnumParameter*>(&itr), &p}) {
        try {
            parameter->Initialize(kKey);
        } catch (const std::runtime_error&) {
            std::abort();   // a non-empty path never fails
        }
        try {
            (void)parameter->GetMaximum();
        } catch (const std::runtime_error&) {
        }
        try {
            const uint32_t v = parameter->ReadValue();
            if (!parameter->Contains(v))
                std::abort();
            parameter->WriteValue(v);
        } catch (const std::invalid_argument&) {
        } catch (const std::out_of_range&) {
        } catch (const std::runtime_error&) {
        }
    }
    return 0;
}
