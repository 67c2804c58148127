// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/Library.h"

#include "host/check/stage/Failure.h"
#include "host/check/stage/Subject.h"

#include <QByteArrayList>
#include <QFile>
#include <QRegularExpression>

#include <boost/core/demangle.hpp>

namespace host::check::tests {

using loading::Symbol;
using stage::fail;
using stage::Subject;

void* openLibrary(const Subject& subject, int mode)
{
    void* const library = dlopen(QFile::encodeName(subject.file()).constData(), mode);
    if (!library)
        fail(QStringLiteral("the system's loader refuses the library: ") +
             QString::fromLocal8Bit(dlerror()));
    return library;
}

EntryPoint entryPoint(const Subject& subject, int mode)
{
    void* const entry = dlsym(openLibrary(subject, mode), entryName);
    if (!entry)
        fail(QStringLiteral("does not export the function %1").arg(QLatin1String(entryName)));
    return reinterpret_cast<EntryPoint>(entry);
}

bool mayBeExported(const Symbol& symbol)
{
    static const QByteArrayList byName{entryName, "_init", "_fini",
                                       "_edata",  "_end",  "__bss_start"};
    static const QRegularExpression resources(
        QStringLiteral("^_Z\\d+q(Init|Cleanup)Resources_\\w+v$"));
    static const QRegularExpression sanitizers(
        QStringLiteral("^_*(asan|ubsan|odr_asan|sanitizer)"));
    // What the compiler makes of the headers of the standard library, of Boost, of Qt and of the
    // platform itself is the same in every library, and visible by what these headers say.
    static const QRegularExpression ofHeaders(QStringLiteral(
        "^_Z(GV|T[VISTC]|T[hv][n0-9_]+)?Z?N?[rVK]*[RO]?"
        "(St|S[absiod]|\\d+Q[A-Z]|5boost|3olm|6plugin(3gui|6plugin)|9__gnu_cxx|10__cxxabiv1)"));
    const QString name = QString::fromLatin1(symbol.name);
    if (byName.contains(symbol.name) || resources.match(name).hasMatch() ||
        sanitizers.match(name).hasMatch())
        return true;
    return symbol.binding != Symbol::Binding::Global && ofHeaders.match(name).hasMatch();
}

QString readable(const QByteArray& symbol)
{
    return QString::fromStdString(boost::core::demangle(symbol.constData()));
}

} // namespace host::check::tests
