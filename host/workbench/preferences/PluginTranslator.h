// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_PLUGINTRANSLATOR_H
#define HOST_WORKBENCH_PREFERENCES_PLUGINTRANSLATOR_H

#include <QByteArray>
#include <QHash>
#include <QTranslator>

namespace host::workbench::preferences {

/// The texts of a plugin. Its widgets ask the host for a text alone, while lupdate files each text
/// under the class that asks: without a context, a text is found whichever class has it. One text
/// has one translation in all of them.
class PluginTranslator : public QTranslator
{
    Q_OBJECT

public:
    /// Of a .qm file. False where it is none.
    bool read(const QString& fileName);

    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override;

private:
    QHash<QByteArray, QString> m_texts; // by source
};

} // namespace host::workbench::preferences

#endif
