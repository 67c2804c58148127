// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TABLOG_H
#define TABLOG_H

#include "olm/qt/log/Log.h"
#include "olm/qt/log/View.h"

#include <QPointer>

namespace olm {
namespace core {
namespace variant {
class Variant;
} // namespace variant
} // namespace core
} // namespace olm

/// The log of a tab and the view of it, to be held by value. The view is a child of the tab, lives
/// longer than the log, and may still be painted or lose the focus then: it loses the log first.
class TabLog
{
public:
    /// Makes the view, a child of @p tab without a place in a layout and still empty.
    explicit TabLog(QWidget* tab);
    ~TabLog();

    /// Null once somebody deleted it.
    olm::qt::log::View* view() const;
    /// Gives the log to the view.
    void show();

    void post(const QString& text);
    /// The text of a message; what is no text is an empty one.
    void postMessage(const olm::core::variant::Variant& value);
    /// The same, between two empty lines.
    void postEmphasisedMessage(const olm::core::variant::Variant& value);

private:
    Q_DISABLE_COPY(TabLog)

    olm::qt::log::Log m_log;
    const QPointer<olm::qt::log::View> m_view;
};

#endif
