// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_TRUSTBAR_H
#define HOST_WORKBENCH_WINDOW_TRUSTBAR_H

#include <QFrame>

class QLabel;
class QPushButton;

namespace host::device {
class Device;
}

namespace host::workbench::window {

/// A strip at the window's top that asks whether a robot's certificate is to be trusted, which
/// nobody but a person can know. Hidden while there is nothing to ask.
class TrustBar : public QFrame
{
    Q_OBJECT

public:
    /// @p device outlives the bar.
    explicit TrustBar(device::Device& device);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void showQuestion();

    device::Device& m_device;
    QLabel* m_words;
    QPushButton* m_trust;
    QPushButton* m_refuse;
};

} // namespace host::workbench::window

#endif
