#pragma once

#include <exception>
#include <string>

namespace GenICam_3_1_Dorvik_zenta {

// Raised by node access: the node map refused, the device failed, the link went.
class GenericException : public std::exception
{
public:
    explicit GenericException(std::string description, std::string sourceFile = {}, unsigned sourceLine = 0)
        : m_description(std::move(description)), m_sourceFile(std::move(sourceFile)), m_sourceLine(sourceLine) {}

    const char* what() const noexcept override { return m_description.c_str(); }
    const char* GetDescription() const noexcept { return m_description.c_str(); }
    const char* GetSourceFileName() const noexcept { return m_sourceFile.c_str(); }
    unsigned GetSourceLine() const noexcept { return m_sourceLine; }

private:
    std::string m_description;
    std::string m_sourceFile;
    unsigned m_sourceLine;
};

// The device or its link failed while the node map itself was fine.
class RuntimeException : public GenericException
{
public:
    using GenericException::GenericException;
};

} // namespace GenICam_3_1_Dorvik_zenta
