// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_HELP_HELPPAGES_H
#define HOST_WORKBENCH_HELP_HELPPAGES_H

#include <QString>
#include <QUrl>

namespace host::workbench::help {

// The pages of help: the Markdown files of docs/help, where each language has a folder with the
// same files. They are part of the program.

/// The page about the workbench itself, which leads to all others.
extern const char* const mainHelpPage;

/// The page about a widget's context word. The empty word is that of the plugin's base tab; a
/// word without a page of its own gets the main one.
QString helpPage(const QString& context);

/// Where @p page lies in @p language, as in "de".
QUrl helpUrl(const QString& page, const QString& language);

/// The first heading of the page that lies at @p url.
QString helpTitle(const QUrl& url);

} // namespace host::workbench::help

#endif
