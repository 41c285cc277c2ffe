#pragma once

#include <QByteArray>
#include <QString>

namespace Core::Exception {

// Deliberately not derived from std::exception: handlers catch the GenICam
// exception, std::exception and this one apart, in that order.
class BaseException
{
public:
    explicit BaseException(const QString& text) : m_text(text), m_utf8(text.toUtf8()) {}
    virtual ~BaseException() = default;

    virtual const char* what() const noexcept { return m_utf8.constData(); }
    const QString& text() const { return m_text; }

private:
    QString m_text;
    QByteArray m_utf8;
};

} // namespace Core::Exception
