#pragma once

#include <string>
#include <vector>

namespace GenICam_3_1_Dorvik_zenta {

class gcstring : public std::string
{
public:
    using std::string::string;
    gcstring() = default;
    gcstring(const std::string& s) : std::string(s) {}
    gcstring(std::string&& s) : std::string(std::move(s)) {}
    operator const char*() const { return c_str(); }
};

class gcstring_vector : public std::vector<gcstring>
{
public:
    using std::vector<gcstring>::vector;
};

} // namespace GenICam_3_1_Dorvik_zenta
