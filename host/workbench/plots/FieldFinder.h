// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_FIELDFINDER_H
#define HOST_WORKBENCH_PLOTS_FIELDFINDER_H

#include <QCborMap>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

namespace host::device {
class Device;
}

namespace host::workbench::plots {

/// Finds the numbers in what a robot publishes while somebody chooses among them: looks at one
/// message of each topic, one topic after the other.
class FieldFinder : public QObject
{
    Q_OBJECT

public:
    /// @p device outlives the finder. Not active at first.
    FieldFinder(device::Device& device, QObject* parent);
    ~FieldFinder() override;

    /// While it is not active it follows nothing; when it begins again, topics that were silent are
    /// tried again.
    void setActive(bool active);

    /// Paths by topic, our name, as far as they were found on this link or the last.
    const QHash<QString, QStringList>& fields() const { return m_fields; }

Q_SIGNALS:
    /// There are more fields, or other topics.
    void changed();

private:
    void onConnectionState(int state);
    void arrange();
    void lookAtNext();
    void take(const QCborMap& message);
    void leave();

    device::Device& m_device;
    QHash<QString, QStringList> m_fields;
    QSet<QString> m_silent;
    bool m_isActive = false;
    bool m_isConnected = false;
    QString m_topic;    // that is looked at
    int m_follower = 0; // 0 while none is
    QTimer m_deadline{this};
};

} // namespace host::workbench::plots

#endif
