// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plugin/NeededLibraries.h"

#include <QFile>

#include <elf.h>
#include <link.h>

#include <cstring>
#include <optional>

namespace host::workbench::plugin {

namespace {

using Header = ElfW(Ehdr);
using Section = ElfW(Shdr);
using Entry = ElfW(Dyn);

/// A file as the linker left it. What an offset in it promises may be missing.
class Image
{
public:
    Image(const uchar* bytes, quint64 size)
        : m_bytes(reinterpret_cast<const char*>(bytes)),
          m_size(size)
    {
    }

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
    QByteArray textAt(quint64 offset) const
    {
        if (offset >= m_size)
            return {};
        const char* const text = m_bytes + offset;
        return {text, static_cast<int>(strnlen(text, m_size - offset))};
    }

private:
    const char* m_bytes;
    quint64 m_size;
};

/// The names in the section @p dynamic, which stand in another one.
QByteArrayList namesIn(const Image& image, const Section& dynamic, const Section& strings)
{
    QByteArrayList names;
    const quint64 count = dynamic.sh_size / sizeof(Entry);
    for (quint64 i = 0; i < count; ++i) {
        const auto entry = image.at<Entry>(dynamic.sh_offset, i);
        if (!entry || entry->d_tag == DT_NULL)
            break;
        if (entry->d_tag == DT_NEEDED)
            names << image.textAt(strings.sh_offset + entry->d_un.d_val);
    }
    return names;
}

} // namespace

QByteArrayList neededLibraries(const QString& file)
{
    QFile library(file);
    if (!library.open(QIODevice::ReadOnly))
        return {};
    const uchar* const bytes = library.map(0, library.size()); // until the file is closed
    if (!bytes)
        return {};
    const Image image(bytes, static_cast<quint64>(library.size()));
    const auto header = image.at<Header>(0);
    if (!header || std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0)
        return {};
    for (quint64 i = 0; i < header->e_shnum; ++i) {
        const auto section = image.at<Section>(header->e_shoff, i);
        if (!section || section->sh_type != SHT_DYNAMIC)
            continue;
        const auto strings = image.at<Section>(header->e_shoff, section->sh_link);
        return strings ? namesIn(image, *section, *strings) : QByteArrayList();
    }
    return {};
}

} // namespace host::workbench::plugin
