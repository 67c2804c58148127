#include "host/device/Variables.h"

#include <QDebug>

namespace host::device {

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
    const auto found = m_values.find({kind, name});
    return found == m_values.end() ? Variant() : found->second;
}

void Variables::set(Kind kind, const char* name, const Variant& value)
{
    const Key key(kind, name);
    m_values.insert_or_assign(key, value);
    if (m_followers.count(key) == 0)
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
    ++m_followers[{kind, name}];
}

void Variables::unfollow(Kind kind, const char* name)
{
    const auto found = m_followers.find({kind, name});
    if (found == m_followers.end() || --found->second > 0)
        return;
    m_news.erase(found->first);
    m_followers.erase(found);
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
        content.insert(key.first, key.second, m_values[key]);
    Q_EMIT changed(content);
}

} // namespace host::device
