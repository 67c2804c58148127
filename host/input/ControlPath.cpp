// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/input/ControlPath.h"

#include <QList>
#include <QStringList>
#include <QWidget>

namespace host::input {

namespace {

/// The class, and a number where it is not the first of its class in its parent.
QString stepTo(const QWidget& control)
{
    const QString name = QString::fromLatin1(control.metaObject()->className());
    int index = 0;
    for (const QWidget* sibling :
         control.parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (sibling == &control)
            break;
        if (name == QLatin1String(sibling->metaObject()->className()))
            ++index;
    }
    return index == 0 ? name : QStringLiteral("%1#%2").arg(name).arg(index);
}

} // namespace

QString pathOf(const QWidget& control, const QWidget& root)
{
    QStringList steps;
    for (const QWidget* widget = &control; widget && widget != &root;
         widget = widget->parentWidget()) {
        if (widget->parentWidget())
            steps.prepend(stepTo(*widget));
    }
    return steps.join('/');
}

QWidget* atPath(QWidget& root, const QString& path)
{
    QWidget* found = &root;
    for (const QString& step : path.split('/', Qt::SkipEmptyParts)) {
        QWidget* next = nullptr;
        for (QWidget* child :
             found->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!next && stepTo(*child) == step)
                next = child;
        }
        if (!next)
            return nullptr;
        found = next;
    }
    return found;
}

} // namespace host::input
