// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TabLog.h"

#include "olm/core/variant/Variant.h"

TabLog::TabLog(QWidget* tab) : m_view(new olm::qt::log::View(tab)) {}

TabLog::~TabLog()
{
    if (m_view)
        m_view->setDocument(nullptr);
}

olm::qt::log::View* TabLog::view() const
{
    return m_view;
}

void TabLog::show()
{
    m_view->setDocument(&m_log);
}

void TabLog::post(const QString& text)
{
    m_log.postLog(text, 255);
}

void TabLog::postMessage(const olm::core::variant::Variant& value)
{
    post(value.get<QString>());
}

void TabLog::postEmphasisedMessage(const olm::core::variant::Variant& value)
{
    m_log.postEmptyLine();
    postMessage(value);
    m_log.postEmptyLine();
}
