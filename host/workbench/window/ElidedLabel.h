// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_ELIDEDLABEL_H
#define HOST_WORKBENCH_WINDOW_ELIDEDLABEL_H

#include <QLabel>
#include <QStringList>

namespace host::workbench::window {

/// Plain text that takes the room it is given and asks for one line: as many lines as have room,
/// the last one cut with an ellipsis. So a long text moves nothing around it. All of it is for
/// screen readers, and for the tool tip that whoever sets the text gives it.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    ElidedLabel();

    /// As they are shown.
    QStringList lines() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace host::workbench::window

#endif
