// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLUGIN_FAILURECARD_H
#define HOST_WORKBENCH_PLUGIN_FAILURECARD_H

#include "host/loading/Failure.h"

#include <QFrame>

class QLabel;
class QLineEdit;

namespace host::workbench::plugin {

/// Stands in the window where a plugin, or one of its widgets, is missing: what happened, why,
/// what to do, and the file. All of it can be selected and copied.
class FailureCard : public QFrame
{
    Q_OBJECT

public:
    explicit FailureCard(const loading::FailureWords& failure, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void translate();
    void makeRoom();

    loading::FailureWords m_failure;
    QLabel* m_title;
    QLabel* m_reason;
    QLabel* m_advice;
    QLineEdit* m_file;
};

} // namespace host::workbench::plugin

#endif
