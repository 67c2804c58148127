// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_CAMERA_CAMERADOCK_H
#define HOST_WORKBENCH_CAMERA_CAMERADOCK_H

#include "host/workbench/camera/CameraFeed.h"

#include <QDockWidget>
#include <QTimer>

class QLabel;

namespace host::workbench::camera {

class PictureView;

/// What the robot's camera sees. Hidden at first; nothing is followed and nothing happens while it
/// is.
class CameraDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p device outlives the dock.
    CameraDock(device::Device& device, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void setActive(bool active);
    void refreshPicture();
    void refreshCaption();

    CameraFeed m_feed;
    PictureView* m_view;
    QLabel* m_caption;
    QTimer m_ageTimer{this}; // runs only while the dock is shown: what does not come grows old
};

} // namespace host::workbench::camera

#endif
