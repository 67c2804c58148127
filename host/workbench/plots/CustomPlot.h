// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_CUSTOMPLOT_H
#define HOST_WORKBENCH_PLOTS_CUSTOMPLOT_H

// QCustomPlot's header needs keywords of Qt's that this project does without.
// NOLINTBEGIN(clang-diagnostic-keyword-macro)
#define foreach Q_FOREACH
#define signals Q_SIGNALS
#include <qcustomplot.h>
#undef foreach
#undef signals
// NOLINTEND(clang-diagnostic-keyword-macro)

#endif
