#pragma once

#include <cstdint>
#include <string>

// Driver keys in Wine's registry below the network class key, written as a
// driver's installation writes them (texts with their full terminating zero).
struct SWineDriverKey
{
    // The Intel driver key of SRegistryFixture, as sub-key sub, plus "DriverDesc".
    static void Create(const std::string& sub, const std::string& guid);
    // Everyone may read the key, change its rights and delete it, but not write it.
    static void DenyWrites(const std::string& sub);
    static void Remove(const std::string& sub);
    static void SetDword(const std::string& sub, const std::string& name, uint32_t value);
    // The stored text as the registry holds it, read past every layer of ours.
    static std::string StoredText(const std::string& sub, const std::string& name);
};
