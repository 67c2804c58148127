#ifndef HOST_WORKBENCH_HELPTOPICS_H
#define HOST_WORKBENCH_HELPTOPICS_H

#include <QString>

namespace host::workbench {

/// One page of help.
struct HelpTopic
{
    QString title;
    QString text; ///< rich text
};

/// The help about a widget's context word; a word without a page of its own gets the general
/// one, as does the empty word.
HelpTopic helpTopic(const QString& context);

} // namespace host::workbench

#endif
