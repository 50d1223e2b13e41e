#pragma once

#include <QtGlobal>

#include <sys/resource.h>

/// Limits the size of all files that a process writes, until it is destroyed. A write beyond the limit stores
/// what fits and fails, as on a full disk. The process must ignore SIGXFSZ.
class FileSizeLimit
{
public:
    /// process: 0 is this one.
    explicit FileSizeLimit(qint64 bytes, pid_t process = 0)
        : m_process(process)
    {
        m_isSet = ::prlimit(m_process, RLIMIT_FSIZE, nullptr, &m_before) == 0;
        const rlimit limit{rlim_t(bytes), m_before.rlim_max};
        m_isSet = m_isSet && ::prlimit(m_process, RLIMIT_FSIZE, &limit, nullptr) == 0;
    }
    ~FileSizeLimit()
    {
        if (m_isSet)
            static_cast<void>(::prlimit(m_process, RLIMIT_FSIZE, &m_before, nullptr));
    }
    Q_DISABLE_COPY(FileSizeLimit)

    bool isSet() const { return m_isSet; }

private:
    pid_t m_process;
    rlimit m_before{};
    bool m_isSet = false;
};
