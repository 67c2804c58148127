// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "EndFollower.h"

#include <QScrollBar>

namespace olm {
namespace qt {
namespace log {

EndFollower::EndFollower(QScrollBar* scrollBar) : QObject(scrollBar)
{
    connect(scrollBar, &QScrollBar::valueChanged, this,
            [this, scrollBar](int value) { m_isAtEnd = value == scrollBar->maximum(); });
    connect(scrollBar, &QScrollBar::rangeChanged, this, [this, scrollBar](int, int maximum) {
        if (m_isAtEnd)
            scrollBar->setValue(maximum);
    });
}

} // namespace log
} // namespace qt
} // namespace olm
