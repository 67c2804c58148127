// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/loading/ElfFile.h"

#include <elf.h>

namespace host::loading {

ElfFile::ElfFile(const QString& name) : m_file(name)
{
    if (!m_file.open(QIODevice::ReadOnly))
        return;
    const uchar* const bytes = m_file.map(0, m_file.size());
    if (!bytes)
        return;
    m_bytes = reinterpret_cast<const char*>(bytes);
    m_size = static_cast<quint64>(m_file.size());
    const auto header = at<ElfW(Ehdr)>(0);
    if (!header || std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0)
        return;
    for (quint64 i = 0; i < header->e_shnum; ++i) {
        if (const auto section = at<Section>(header->e_shoff, i))
            m_sections.push_back(*section);
    }
}

std::optional<ElfFile::Section> ElfFile::stringsOf(const Section& section) const
{
    return section.sh_link < m_sections.size() ? std::make_optional(m_sections[section.sh_link])
                                               : std::nullopt;
}

QByteArray ElfFile::textAt(quint64 offset) const
{
    if (offset >= m_size)
        return {};
    const char* const text = m_bytes + offset;
    return {text, static_cast<int>(strnlen(text, m_size - offset))};
}

} // namespace host::loading
