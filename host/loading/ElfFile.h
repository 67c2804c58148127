// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_LOADING_ELFFILE_H
#define HOST_LOADING_ELFFILE_H

#include <QByteArray>
#include <QFile>
#include <QString>

#include <link.h>

#include <cstring>
#include <optional>
#include <vector>

namespace host::loading {

/// A shared library as the linker left it; nothing of it is loaded or run. What an offset in it
/// promises may be missing.
class ElfFile
{
public:
    using Section = ElfW(Shdr);

    /// Without sections for what this machine cannot load, and for what is damaged.
    explicit ElfFile(const QString& name);

    const std::vector<Section>& sections() const { return m_sections; }

    /// The section with the strings of @p section.
    std::optional<Section> stringsOf(const Section& section) const;

    /// Element @p index of those that begin at @p offset.
    template <class T>
    std::optional<T> at(quint64 offset, quint64 index = 0) const
    {
        if (offset > m_size || index >= (m_size - offset) / sizeof(T))
            return std::nullopt;
        T element{};
        std::memcpy(&element, m_bytes + offset + index * sizeof(T), sizeof(T));
        return element;
    }

    /// Up to the next zero.
    QByteArray textAt(quint64 offset) const;

private:
    QFile m_file; // which keeps its content mapped
    const char* m_bytes = nullptr;
    quint64 m_size = 0;
    std::vector<Section> m_sections;
};

} // namespace host::loading

#endif
