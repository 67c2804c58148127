// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/loading/NeededLibraries.h"

#include "host/loading/ElfFile.h"

#include <elf.h>
#include <link.h>

namespace host::loading {

namespace {

using Entry = ElfW(Dyn);

/// The names in the section @p dynamic, which stand in another one.
QByteArrayList namesIn(const ElfFile& file, const ElfFile::Section& dynamic,
                       const ElfFile::Section& strings)
{
    QByteArrayList names;
    const quint64 count = dynamic.sh_size / sizeof(Entry);
    for (quint64 i = 0; i < count; ++i) {
        const auto entry = file.at<Entry>(dynamic.sh_offset, i);
        if (!entry || entry->d_tag == DT_NULL)
            break;
        if (entry->d_tag == DT_NEEDED)
            names << file.textAt(strings.sh_offset + entry->d_un.d_val);
    }
    return names;
}

} // namespace

QByteArrayList neededLibraries(const QString& file)
{
    const ElfFile library(file);
    for (const ElfFile::Section& section : library.sections()) {
        if (section.sh_type != SHT_DYNAMIC)
            continue;
        const auto strings = library.stringsOf(section);
        return strings ? namesIn(library, section, *strings) : QByteArrayList();
    }
    return {};
}

} // namespace host::loading
