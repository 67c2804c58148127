// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_QT_LOG_ENDFOLLOWER_H
#define OLM_QT_LOG_ENDFOLLOWER_H

#include <QObject>

class QScrollBar;

namespace olm {
namespace qt {
namespace log {

/// Keeps what a scroll bar scrolls at its end while it grows, shown or hidden, unless somebody
/// scrolled away from there.
class EndFollower : public QObject
{
    Q_OBJECT

public:
    /// A child of @p scrollBar.
    explicit EndFollower(QScrollBar* scrollBar);

private:
    bool m_isAtEnd = true;
};

} // namespace log
} // namespace qt
} // namespace olm

#endif
