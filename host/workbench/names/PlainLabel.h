// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_NAMES_PLAINLABEL_H
#define HOST_WORKBENCH_NAMES_PLAINLABEL_H

#include <QLabel>

namespace host::workbench::names {

/// For sentences, also those with a robot's names, which are no markup.
inline QLabel* makePlainLabel()
{
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace host::workbench::names

#endif
