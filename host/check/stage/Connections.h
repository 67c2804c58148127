// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_CONNECTIONS_H
#define HOST_CHECK_STAGE_CONNECTIONS_H

#include <QByteArray>
#include <QMetaMethod>
#include <QObject>

namespace host::check::stage {

/// How many connections there are with the signals of @p object, which lets everybody ask for
/// its receivers().
template <class Object>
int connectionsOf(const Object& object)
{
    int count = 0;
    const QMetaObject& meta = *object.metaObject();
    for (int i = 0; i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            count += object.receivers(QByteArray::number(QSIGNAL_CODE) +
                                      meta.method(i).methodSignature());
    }
    return count;
}

} // namespace host::check::stage

#endif
