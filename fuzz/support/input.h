#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace fuzz {

/// Reads numbers and bytes from the front of an input. Past the end all values are 0, so that each input is
/// valid.
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size)
        : m_data(reinterpret_cast<const char *>(data))
        , m_left(size)
    {}

    bool atEnd() const { return m_left == 0; }

    quint8 byte() { return number<quint8>(); }
    quint16 word() { return number<quint16>(); }
    quint32 longWord() { return number<quint32>(); }
    /// Any bit pattern of a double, including NaN and infinities.
    double real()
    {
        const auto bits = number<quint64>();
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }
    /// A number below count.
    int index(int count) { return byte() % count; }

    /// Exactly size bytes, padded with zeros.
    QByteArray bytes(int size)
    {
        const auto available = int(std::min(m_left, std::size_t(size)));
        QByteArray result(m_data, available);
        result.append(size - available, '\0');
        skip(available);
        return result;
    }

private:
    template<typename Number>
    Number number()
    {
        return qFromBigEndian<Number>(bytes(int(sizeof(Number))).constData());
    }

    void skip(int size)
    {
        m_data += size;
        m_left -= std::size_t(size);
    }

    const char *m_data;
    std::size_t m_left;
};

} // namespace fuzz
