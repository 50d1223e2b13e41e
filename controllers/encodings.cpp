#include "controllers/encodings.h"

#include <QtGlobal>

#include <cmath>

namespace zelta {

namespace {

constexpr double largestDataByte = 127.0;

// The range is checked first, because an out-of-range conversion wraps on some processors and saturates on
// others. NaN is not greater than 0, so it gives 0.
quint8 truncatedToDataByte(double value)
{
    if (!(value > 0.0))
        return 0;
    return quint8(qMin(value, largestDataByte));
}

quint8 lowByteOfInteger(double value)
{
    if (!std::isfinite(value))
        return 0;
    constexpr double byteRange = 256.0;
    return quint8(int(std::fmod(std::trunc(value), byteRange)));
}

} // namespace

quint8 gainValue(int decibels)
{
    constexpr int limit = 15;
    return quint8((qBound(-limit, decibels, limit) + limit) * 127 / (2 * limit));
}

quint8 qValue(double q)
{
    constexpr double lowest = 0.1;
    constexpr double highest = 8.0;
    constexpr double range = 7.9;
    if (q > highest)
        return quint8(largestDataByte);
    return truncatedToDataByte((q - lowest) * largestDataByte / range);
}

quint8 effectParameter(double value, double min, double max, int type)
{
    constexpr int continuous = 0;
    if (type != continuous)
        return lowByteOfInteger(value);
    if (std::isnan(value) || std::isnan(min) || std::isnan(max))
        return 0;
    const double low = qMin(min, max);
    const double high = qMax(min, max);
    return truncatedToDataByte((qBound(low, value, high) - low) * largestDataByte / (high - low));
}

} // namespace zelta
