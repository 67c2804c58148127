// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_TEXT_SCRIPTTEXT_H
#define HOST_WORKBENCH_SCRIPT_TEXT_SCRIPTTEXT_H

#include "host/workbench/script/text/Form.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <vector>

namespace host::workbench::script::text {

/// One line of a script that asks for something.
struct Statement
{
    int line;     ///< from 1
    QString text; ///< as it was written
    int form;     ///< its index in the grammar
    Arguments arguments;
};

/// What a script may say.
struct Grammar
{
    /// What is expected of the placeholder @p name in place of @p value; empty if that is fine.
    using Check = QString (*)(const QString& name, const QString& value);

    std::vector<Form> forms;
    Check check;
};

/// The statements of a script: one a line, words with blanks between them. Words with blanks are in
/// quotes; "#" begins a comment. Needs no window.
class ScriptText
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::text::ScriptText)

public:
    ScriptText(const QString& text, const Grammar& grammar);

    const std::vector<Statement>& statements() const { return m_statements; }

    /// What is wrong, "12: …" for line 12; none where all statements are understood.
    const QStringList& problems() const { return m_problems; }

private:
    void read(int line, const QString& text, const Grammar& grammar);
    static std::vector<Word> split(const QString& text, QString* problem);
    static QString problemOf(const std::vector<Word>& words, const Grammar& grammar);
    static QString problemOf(const Arguments& arguments, const Grammar& grammar);

    std::vector<Statement> m_statements;
    QStringList m_problems;
};

} // namespace host::workbench::script::text

#endif
