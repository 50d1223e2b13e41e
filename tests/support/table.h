#pragma once

#include <cstddef>

namespace testsupport {

/// The rows of a test table that is defined in another file. Refers to an array, which must outlive this
/// object.
template<typename Row>
class Table
{
public:
    template<std::size_t size>
    constexpr explicit Table(const Row (&rows)[size]) noexcept
        : m_begin(rows)
        , m_end(rows + size)
    {}

    constexpr const Row *begin() const { return m_begin; }
    constexpr const Row *end() const { return m_end; }

private:
    const Row *m_begin;
    const Row *m_end;
};

} // namespace testsupport
