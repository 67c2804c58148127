// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_QT_LOG_LOG_H
#define OLM_QT_LOG_LOG_H

#include "olm/core/Export.h"

#include <QTextDocument>

namespace olm {
namespace qt {
namespace log {

/// A document of log lines, shown by giving it to a View. Bounded: when it is full the oldest
/// lines go, so that a month of messages does not fill the memory.
class OLM_EXPORT Log : public QTextDocument
{
public:
    Log();

    /// Appends @p text as it is, one line for each line of it. @p level is a weight from 0 to
    /// 255; this host shows every one alike.
    void postLog(const QString& text, int level);
    void postEmptyLine();

    /// Also starts the log anew: the next line is the first again.
    void clear() override;

private:
    bool m_started;
};

} // namespace log
} // namespace qt
} // namespace olm

#endif
