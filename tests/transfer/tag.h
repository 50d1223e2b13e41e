#pragma once

#include <QtGlobal>

/// Two letters that name a query, an event or a packet: "SN".
class Tag
{
public:
    constexpr Tag(const char (&letters)[3])
        : m_value(quint16(letters[0] << 8 | letters[1]))
    {}
    constexpr Tag(quint16 value)
        : m_value(value)
    {}
    constexpr operator quint16() const { return m_value; }

private:
    quint16 m_value;
};
