// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/Variables.h"

#include <QDebug>

namespace host::device::variables {

namespace {

constexpr std::chrono::milliseconds reportInterval{40};

} // namespace

Variables::Variables()
{
    m_timer.setInterval(reportInterval);
    // Queued: a timer stands still while its own slot runs an event loop, as a dialog may.
    connect(&m_timer, &QTimer::timeout, this, &Variables::report, Qt::QueuedConnection);
}

Variables::Variant Variables::value(Kind kind, const char* name) const
{
    const Entry* const entry = find({kind, name});
    return entry ? entry->value : Variant();
}

const Variables::Entry* Variables::find(const Key& key) const
{
    const auto found = m_values.find(key);
    return found == m_values.end() ? nullptr : &found->second;
}

std::set<Variables::Key> Variables::keys() const
{
    std::set<Key> keys;
    for (const auto& [key, entry] : m_values)
        keys.insert(key);
    for (const auto& [key, followers] : m_followers)
        keys.insert(key);
    return keys;
}

void Variables::set(Kind kind, const char* name, const Variant& value, const QString& writer)
{
    const Key key(kind, name);
    m_values.insert_or_assign(key, Entry{value, writer, std::chrono::system_clock::now()});
    announce(key);
}

void Variables::repeat(const Key& key)
{
    if (m_values.count(key) > 0)
        announce(key);
}

void Variables::announce(const Key& key)
{
    Q_EMIT touched(key);
    if (!isFollowed(key))
        return;
    m_news.insert(key);
    if (!m_timer.isActive())
        m_timer.start();
}

Variables::Variant Variables::property(Kind kind, const char* name, const char* property) const
{
    const auto found = m_properties.find({kind, name, property});
    return found == m_properties.end() ? Variant() : found->second;
}

void Variables::setProperty(Kind kind, const char* name, const char* property, const Variant& value)
{
    m_properties.insert_or_assign({kind, name, property}, value);
}

void Variables::follow(Kind kind, const char* name)
{
    const Key key(kind, name);
    ++m_followers[key];
    Q_EMIT touched(key);
}

void Variables::unfollow(Kind kind, const char* name)
{
    const Key key(kind, name);
    const auto found = m_followers.find(key);
    if (found == m_followers.end() || --found->second > 0)
        return;
    m_news.erase(key);
    m_followers.erase(found);
    Q_EMIT touched(key);
}

void Variables::beginTransaction(const QString& name)
{
    if (m_isInTransaction) {
        qWarning().noquote() << "The transaction" << name << "was begun within" << m_transaction
                             << "- end that one first: transactions do not nest.";
        return;
    }
    m_isInTransaction = true;
    m_transaction = name;
}

bool Variables::endTransaction()
{
    if (!m_isInTransaction) {
        qWarning("A transaction was ended that was not begun: call beginTransaction() first.");
        return false;
    }
    m_isInTransaction = false;
    return true;
}

void Variables::report()
{
    if (m_isInTransaction)
        return;
    if (m_news.empty()) {
        m_timer.stop();
        return;
    }
    // Taken out first: what is set while the news is delivered belongs to the next bundle.
    const std::set<Key> news = std::exchange(m_news, {});
    plugin::gui::HistoryBundleContent content;
    for (const Key& key : news)
        content.insert(key.first, key.second, m_values[key].value);
    Q_EMIT changed(content);
}

} // namespace host::device::variables
