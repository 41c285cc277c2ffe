#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gigeemu {

// A zip archive with one deflated entry.
std::vector<std::uint8_t> zipOneFile(const std::string& name, const std::string& content);

} // namespace gigeemu
