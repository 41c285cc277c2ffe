#pragma once

#include <exception>
#include <string>

namespace CfgApi {

// The adapter class's failures: a plain std::exception that carries a text.
class CTextException : public std::exception
{
public:
    explicit CTextException(std::string text) : m_text(std::move(text)) {}
    const char* what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};

} // namespace CfgApi
