// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_TEXT_FORM_H
#define HOST_WORKBENCH_SCRIPT_TEXT_FORM_H

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace host::workbench::script::text {

/// A word of a script; one in quotes is never a keyword.
struct Word
{
    QString text;
    bool isQuoted = false;
};

/// What a statement was given, by the placeholders of its form. A keyword that may be left out is
/// among them where it was not.
class Arguments
{
public:
    bool has(const QString& name) const { return m_values.contains(name); }
    /// Empty where it was not given.
    QString value(const QString& name) const { return m_values.value(name).value(0); }
    /// Of a placeholder that takes several words.
    QStringList values(const QString& name) const { return m_values.value(name); }
    QMap<QString, QStringList> all() const { return m_values; }

    void add(const QString& name, const QString& value) { m_values[name].append(value); }

private:
    QMap<QString, QStringList> m_values;
};

/// How a statement is written: "click CONTROL [in PLACE]". Words in small letters are keywords,
/// those in capitals are placeholders; "NAME=a|b" is a placeholder for one of the words, "NAME…"
/// takes all that follow, and what is in brackets can be left out.
class Form
{
public:
    explicit Form(const QString& pattern);

    /// Its first keyword.
    QString command() const { return m_items.front().text; }

    /// For people.
    QString inWords() const;

    /// Nothing where @p words are not of this form.
    std::optional<Arguments> match(const std::vector<Word>& words) const;

private:
    enum class Kind
    {
        Keyword,
        Placeholder,
        Placeholders,
        Option // with items of its own
    };

    struct Item
    {
        Kind kind;
        QString text;
        QStringList choices; // empty: any word
        std::vector<Item> items;
    };

    using Items = std::vector<Item>;
    using Words = std::vector<Word>;

    static Items parse(QStringList& tokens);
    static QStringList describe(const Items& items);
    static QStringList keywords(const Items& items);
    std::optional<Arguments> take(const std::vector<const Item*>& items, const Words& words,
                                  std::size_t at, const Arguments& arguments) const;

    Items m_items;
    QStringList m_optional; // keywords in brackets: as a value they have to be in quotes
};

} // namespace host::workbench::script::text

#endif
