// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/text/ScriptText.h"

namespace host::workbench::script::text {

ScriptText::ScriptText(const QString& text, const Grammar& grammar)
{
    int number = 0;
    for (const QString& line : text.split('\n'))
        read(++number, line.trimmed(), grammar);
}

void ScriptText::read(int line, const QString& text, const Grammar& grammar)
{
    QString problem;
    const std::vector<Word> words = split(text, &problem);
    if (problem.isEmpty() && words.empty())
        return;
    for (std::size_t i = 0; i < grammar.forms.size() && problem.isEmpty(); ++i) {
        const auto arguments = grammar.forms[i].match(words);
        if (!arguments)
            continue;
        problem = problemOf(*arguments, grammar);
        if (problem.isEmpty()) {
            m_statements.push_back({line, text, static_cast<int>(i), *arguments});
            return;
        }
    }
    if (problem.isEmpty())
        problem = problemOf(words, grammar);
    m_problems << QStringLiteral("%1: %2").arg(QString::number(line), problem);
}

/// In quotes, a backslash stands for itself unless a quote, a backslash or an n (a new line)
/// follows.
std::vector<Word> ScriptText::split(const QString& text, QString* problem)
{
    std::vector<Word> words;
    int at = 0;
    while (at < text.size()) {
        if (text.at(at).isSpace()) {
            ++at;
            continue;
        }
        if (text.at(at) == '#')
            break;
        Word word;
        word.isQuoted = text.at(at) == '"';
        if (!word.isQuoted) {
            while (at < text.size() && !text.at(at).isSpace())
                word.text += text.at(at++);
            words.push_back(word);
            continue;
        }
        ++at;
        while (at < text.size() && text.at(at) != '"') {
            const QChar next = at + 1 < text.size() ? text.at(at + 1) : QChar();
            if (text.at(at) == '\\' && (next == '"' || next == '\\' || next == 'n')) {
                word.text += next == 'n' ? QChar('\n') : next;
                at += 2;
            } else {
                word.text += text.at(at++);
            }
        }
        if (at == text.size()) {
            *problem = tr("the quote that begins with \"%1\" is not closed").arg(word.text);
            return {};
        }
        ++at;
        words.push_back(word);
    }
    return words;
}

QString ScriptText::problemOf(const std::vector<Word>& words, const Grammar& grammar)
{
    QStringList commands;
    QStringList forms;
    for (const Form& form : grammar.forms) {
        commands << form.command();
        if (form.command() == words.front().text)
            forms << form.inWords();
    }
    if (!forms.isEmpty())
        return tr("expected: %1").arg(forms.join(tr(", or: ")));
    commands.removeDuplicates();
    return tr("\"%1\" is not a command; expected one of: %2")
        .arg(words.front().text, commands.join(", "));
}

QString ScriptText::problemOf(const Arguments& arguments, const Grammar& grammar)
{
    const auto all = arguments.all();
    for (auto each = all.begin(); each != all.end(); ++each) {
        for (const QString& value : each.value()) {
            const QString expected = grammar.check(each.key(), value);
            if (!expected.isEmpty())
                return tr("%1: expected %2, not \"%3\"").arg(each.key(), expected, value);
        }
    }
    return {};
}

} // namespace host::workbench::script::text
