// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_RECORDING_RECORDBUTTON_H
#define HOST_WORKBENCH_RECORDING_RECORDBUTTON_H

#include <QString>
#include <QTimer>
#include <QToolButton>

namespace host::device {
class Device;
}

namespace host::workbench::recording {

/// Begins and ends the recording of a device, and shows how long and how large it is by now.
class RecordButton : public QToolButton
{
    Q_OBJECT

public:
    /// @p device outlives the button.
    explicit RecordButton(device::Device& device, QWidget* parent = nullptr);

    /// The same, for a menu; owned by the button.
    QAction* action() { return m_action; }

    /// Begins to record into @p file.
    void record(const QString& file);

Q_SIGNALS:
    /// What went wrong, and what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void onTriggered();
    void chooseFile();
    QString usualName() const;
    void refresh();
    void showProgress();

    device::Device& m_device;
    QAction* m_action;
    QTimer m_clock; // runs while it records
};

} // namespace host::workbench::recording

#endif
