// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLUGIN_DIALOGOPENING_H
#define HOST_WORKBENCH_PLUGIN_DIALOGOPENING_H

#include <QObject>

class QDialog;

namespace host::workbench::plugin {

/// Makes a plugin's dialog ready to use when it opens: its title is not cut, and typing replaces
/// the number or text in its first field.
class DialogOpening : public QObject
{
    Q_OBJECT

public:
    /// @p dialog owns this, and is not shown yet.
    explicit DialogOpening(QDialog& dialog);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeRoomForTitle();
    void selectText();

    QDialog& m_dialog;
};

} // namespace host::workbench::plugin

#endif
