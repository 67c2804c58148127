#ifndef HOST_WORKBENCH_HELPPANEL_H
#define HOST_WORKBENCH_HELPPANEL_H

#include <QDockWidget>

class QTextBrowser;

namespace host::workbench {

/// Help at the window's side, where it does not get in the way of what it is about.
class HelpPanel : public QDockWidget
{
    Q_OBJECT

public:
    explicit HelpPanel(QWidget* parent);

    /// Shows the panel with @p text, which is rich text.
    void open(const QString& title, const QString& text);

private:
    QTextBrowser* m_browser;
};

} // namespace host::workbench

#endif
