// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/OffscreenMessages.h"

#include <QString>
#include <QtGlobal>

namespace host::workbench {

namespace {

QtMessageHandler s_previous = nullptr;

void passOn(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support ")))
        s_previous(type, context, message);
}

} // namespace

void leaveOutOffscreenMessages()
{
    s_previous = qInstallMessageHandler(passOn);
}

} // namespace host::workbench
