#ifndef HOST_WORKBENCH_WINDOW_LAMP_H
#define HOST_WORKBENCH_WINDOW_LAMP_H

#include <QLabel>

namespace host::workbench::window {

/// A round lamp for the state of a connection, beside the words that say it too.
class Lamp : public QLabel
{
    Q_OBJECT

public:
    Lamp();

    /// @p state as in device::Device::connectionState().
    void setState(int state);
};

} // namespace host::workbench::window

#endif
