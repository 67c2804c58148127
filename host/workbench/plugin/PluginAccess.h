#ifndef HOST_WORKBENCH_PLUGIN_PLUGINACCESS_H
#define HOST_WORKBENCH_PLUGIN_PLUGINACCESS_H

#include <QObject>

class QWidget;

namespace host::workbench::plugin {

/// Makes a plugin's widget usable without a mouse, without eyes and on a small screen: Tab leaves
/// its tables, those of its controls that show no words get the names that a screen reader says,
/// and no tab hides behind others. The plugin itself brings no texts that nobody sees.
class PluginAccess : public QObject
{
    Q_OBJECT

public:
    /// @p widget is a plugin's, has all its controls, and owns this.
    explicit PluginAccess(QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void translate();

    QWidget& m_widget;
};

} // namespace host::workbench::plugin

#endif
