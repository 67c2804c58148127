// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_VARIABLES_H
#define HOST_DEVICE_VARIABLES_VARIABLES_H

#include "plugin/gui/DeviceHost.h"
#include "plugin/gui/HistoryBundleContent.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace host::device::variables {

/// The variables of one device: their values, who follows them, and the bundles in which
/// changes are reported. A value that is set again is news too, even an equal one: whoever
/// asked for it learns that the device holds it.
class Variables : public QObject
{
    Q_OBJECT

public:
    using Kind = plugin::gui::VariableKind;
    using Variant = olm::core::variant::Variant;

    using Key = std::pair<Kind, std::string>;

    /// A value as it was set last.
    struct Entry
    {
        Variant value;
        QString writer; ///< empty for the device itself
        std::chrono::system_clock::time_point written;
    };

    Variables();

    /// Empty where there is no such variable.
    Variant value(Kind kind, const char* name) const;
    /// To be read at once, and reported in the next bundle if the variable is followed. Of
    /// @p writer only a name is kept.
    void set(Kind kind, const char* name, const Variant& value, const QString& writer = QString());
    /// Reports the value once more, if there is one, as if it had been set again.
    void repeat(const Key& key);
    /// Null where the variable was never set.
    const Entry* find(const Key& key) const;
    /// All variables that were set or are followed.
    std::set<Key> keys() const;

    /// A note on a variable, such as its unit; empty where there is none. Never reported.
    Variant property(Kind kind, const char* name, const char* property) const;
    void setProperty(Kind kind, const char* name, const char* property, const Variant& value);
    /// All of them, by kind, variable and note.
    using Properties = std::map<std::tuple<Kind, std::string, std::string>, Variant>;
    const Properties& properties() const { return m_properties; }

    /// Counts the followers of a variable: changes are reported from the first one's
    /// registration until the last one's end. The variable need not exist yet.
    void follow(Kind kind, const char* name);
    /// Harmless where nobody follows.
    void unfollow(Kind kind, const char* name);
    bool isFollowed(const Key& key) const { return m_followers.count(key) > 0; }

    /// Until the end no bundle goes out. Transactions do not nest: a second begin is warned of
    /// and the next end ends both.
    void beginTransaction(const QString& name);
    /// False, with a warning, where none was begun.
    bool endTransaction();

    bool isInTransaction() const { return m_isInTransaction; }

Q_SIGNALS:
    /// The newest values of all followed variables set since the last time. At most 25 times a
    /// second, out of the event loop; the content is valid during the call only.
    void changed(const plugin::gui::HistoryBundleContent& content);
    /// At once, and for every variable: it was set, or its followers changed. Whoever listens
    /// does next to nothing.
    void touched(const host::device::variables::Variables::Key& key);

private:
    void announce(const Key& key);
    void report();

    std::map<Key, Entry> m_values;
    Properties m_properties;
    std::map<Key, int> m_followers;
    std::set<Key> m_news;
    QTimer m_timer{this}; // runs only while there is something to report
    bool m_isInTransaction = false;
    QString m_transaction;
};

} // namespace host::device::variables

#endif
