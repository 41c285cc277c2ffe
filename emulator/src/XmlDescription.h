#pragma once

#include "Config.h"

#include <cstdint>
#include <string>
#include <vector>

namespace gigeemu {

// The device's GenICam description, generated from its configuration.
class CXmlDescription {
public:
    explicit CXmlDescription(const SConfig& config);

    const std::string& text() const { return m_text; }
    // The file name announced in the URL register; ends in .zip when zipped.
    std::string fileName() const;
    // What the device serves: the text, or a one-entry zip of it.
    std::vector<std::uint8_t> blob() const;

private:
    void category(const std::string& name, const std::vector<std::string>& features);
    void intReg(const std::string& name, std::uint32_t address, const char* access);
    void integer(const std::string& name, const std::string& reg, const std::string& limits,
                 const std::string& extra = {});
    void maskedReg(const std::string& name, std::uint32_t address, const std::string& bits);
    void enumeration(const std::string& name, const std::string& reg,
                     const std::vector<std::pair<std::string, std::uint32_t>>& entries);
    void command(const std::string& name, const std::string& reg);
    void floatReg(const std::string& name, std::uint32_t address, const char* access);
    void stringReg(const std::string& name, std::uint32_t address, std::uint32_t length, const char* access);

    SConfig m_config;
    std::string m_text;
};

} // namespace gigeemu
