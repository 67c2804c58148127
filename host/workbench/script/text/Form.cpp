// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/text/Form.h"

namespace host::workbench::script::text {

Form::Form(const QString& pattern)
{
    QStringList tokens =
        QString(pattern).replace('[', "[ ").replace(']', " ]").split(' ', Qt::SkipEmptyParts);
    m_items = parse(tokens);
    for (const Item& item : m_items) {
        if (item.kind == Kind::Option)
            m_optional << keywords(item.items);
    }
}

QStringList Form::keywords(const Items& items)
{
    QStringList words;
    for (const Item& item : items) {
        if (item.kind == Kind::Keyword)
            words << item.text;
        words << keywords(item.items);
    }
    return words;
}

Form::Items Form::parse(QStringList& tokens)
{
    Items items;
    while (!tokens.isEmpty()) {
        QString token = tokens.takeFirst();
        if (token == "]")
            break;
        if (token == "[") {
            items.push_back({Kind::Option, {}, {}, parse(tokens)});
        } else if (token.endsWith(QChar(0x2026))) {
            token.chop(1);
            items.push_back({Kind::Placeholders, token, {}, {}});
        } else if (token.contains('=')) {
            items.push_back({Kind::Placeholder,
                             token.section('=', 0, 0),
                             token.section('=', 1).split('|'),
                             {}});
        } else {
            const bool isKeyword = token == token.toLower();
            items.push_back({isKeyword ? Kind::Keyword : Kind::Placeholder, token, {}, {}});
        }
    }
    return items;
}

QString Form::inWords() const
{
    return describe(m_items).join(' ');
}

QStringList Form::describe(const Items& items)
{
    QStringList words;
    for (const Item& item : items) {
        switch (item.kind) {
        case Kind::Option:
            words << '[' + describe(item.items).join(' ') + ']';
            break;
        case Kind::Placeholders:
            words << item.text + QChar(0x2026);
            break;
        default:
            words << (item.choices.isEmpty() ? item.text : item.choices.join('|'));
        }
    }
    return words;
}

std::optional<Arguments> Form::match(const std::vector<Word>& words) const
{
    std::vector<const Item*> items;
    for (const Item& item : m_items)
        items.push_back(&item);
    return take(items, words, 0, {});
}

/// Tries all ways, each option first with and then without it: a form and a line are short.
std::optional<Arguments> Form::take(const std::vector<const Item*>& items, const Words& words,
                                    std::size_t at, const Arguments& arguments) const
{
    if (items.empty())
        return at == words.size() ? std::make_optional(arguments) : std::nullopt;
    const Item& item = *items.front();
    const std::vector<const Item*> rest(items.begin() + 1, items.end());
    if (item.kind == Kind::Option) {
        std::vector<const Item*> with;
        for (const Item& each : item.items)
            with.push_back(&each);
        with.insert(with.end(), rest.begin(), rest.end());
        const auto found = take(with, words, at, arguments);
        return found ? found : take(rest, words, at, arguments);
    }
    if (at == words.size())
        return std::nullopt;
    const Word& word = words[at];
    Arguments more = arguments;
    if (item.kind == Kind::Keyword) {
        more.add(item.text, word.text);
        return !word.isQuoted && word.text == item.text ? take(rest, words, at + 1, more)
                                                        : std::nullopt;
    }
    const bool isKeyword = !word.isQuoted && m_optional.contains(word.text);
    if (isKeyword || (!item.choices.isEmpty() && !item.choices.contains(word.text)))
        return std::nullopt;
    more.add(item.text, word.text);
    const auto found = take(rest, words, at + 1, more);
    return found || item.kind != Kind::Placeholders ? found : take(items, words, at + 1, more);
}

} // namespace host::workbench::script::text
