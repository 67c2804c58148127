// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_HELP_HELPPANEL_H
#define HOST_WORKBENCH_HELP_HELPPANEL_H

#include <QDockWidget>

class QLabel;
class QTextBrowser;
class QUrl;

namespace host::workbench::preferences {
class Language;
} // namespace host::workbench::preferences

namespace host::workbench::help {

/// Help at the window's side, where it does not get in the way of what it is about. It follows
/// the language, and opens nothing outside the program.
class HelpPanel : public QDockWidget
{
    Q_OBJECT

public:
    /// @p language outlives the panel.
    HelpPanel(const preferences::Language& language, QWidget* parent);

    /// Shows the panel with a page of docs/help.
    void openPage(const QString& page);

protected:
    void changeEvent(QEvent* event) override;

private:
    void follow(const QUrl& link);
    void show(const QUrl& page);
    void setTitle(const QString& title);
    void translate();

    const preferences::Language& m_language;
    QString m_page; // empty: nothing yet
    QTextBrowser* m_browser;
    QLabel* m_outside; // the address of a link that leads out of the help
};

} // namespace host::workbench::help

#endif
