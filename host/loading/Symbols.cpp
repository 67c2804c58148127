// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/loading/Symbols.h"

#include "host/loading/ElfFile.h"

#include <elf.h>
#include <link.h>

#include <optional>

namespace host::loading {

namespace {

using SymbolEntry = ElfW(Sym);

std::optional<Symbol::Binding> bindingOf(const SymbolEntry& entry)
{
    switch (ELF64_ST_BIND(entry.st_info)) { // the same for 32 bits
    case STB_GLOBAL:
        return Symbol::Binding::Global;
    case STB_WEAK:
        return Symbol::Binding::Weak;
    case STB_GNU_UNIQUE:
        return Symbol::Binding::Unique;
    default:
        return std::nullopt;
    }
}

bool isVisible(const SymbolEntry& entry)
{
    const auto visibility = ELF64_ST_VISIBILITY(entry.st_other);
    return visibility == STV_DEFAULT || visibility == STV_PROTECTED;
}

} // namespace

std::vector<Symbol> symbols(const QString& file)
{
    std::vector<Symbol> found;
    const ElfFile library(file);
    for (const ElfFile::Section& section : library.sections()) {
        const auto strings = library.stringsOf(section);
        if (section.sh_type != SHT_DYNSYM || !strings)
            continue;
        const quint64 count = section.sh_size / sizeof(SymbolEntry);
        for (quint64 i = 0; i < count; ++i) {
            const auto entry = library.at<SymbolEntry>(section.sh_offset, i);
            if (!entry)
                break;
            const auto binding = bindingOf(*entry);
            if (binding && isVisible(*entry))
                found.push_back({library.textAt(strings->sh_offset + entry->st_name), *binding,
                                 entry->st_shndx != SHN_UNDEF});
        }
    }
    return found;
}

} // namespace host::loading
