// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_FILESIZELIMIT_H
#define QUANDREL_FILESIZELIMIT_H

#include <csignal>

#include <sys/resource.h>

/// Stands for a full disk, for which a test needs no rights: as long as this lives, no file of the
/// process can be written beyond that many bytes. A write fails as on a disk without room, with
/// other words.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN); // would end the process
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

    static constexpr const char* words = "File too large";

private:
    rlimit m_before{};
};

#endif
