// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_PSEUDOTRANSLATOR_H
#define HOST_WORKBENCH_PREFERENCES_PSEUDOTRANSLATOR_H

#include <QTranslator>

namespace host::workbench::preferences {

/// Makes the pseudo-language out of the source texts: in brackets, with accents, and longer by
/// as much as other languages often are. A text on the screen without brackets is not
/// translatable, one without its closing bracket has too little room.
class PseudoTranslator : public QTranslator
{
    Q_OBJECT

public:
    bool isEmpty() const override;
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override;
};

} // namespace host::workbench::preferences

#endif
