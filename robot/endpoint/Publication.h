#ifndef ROBOT_ENDPOINT_PUBLICATION_H
#define ROBOT_ENDPOINT_PUBLICATION_H

#include "robot/endpoint/Frame.h"

#include <QCborMap>
#include <QHash>
#include <QPair>
#include <QString>

namespace robot {

/// One message on its way to all who subscribed: encoded when the first of them needs it, once
/// for each form, however many clients there are.
class Publication
{
public:
    /// @p topic in its canonical form.
    Publication(const QString& topic, const QCborMap& msg);

    const QString& topic() const { return m_topic; }

    /// @p name is the topic as the client wrote it: clients match by that text.
    Frame frame(const QString& name, Encoding encoding) const;

private:
    QString m_topic;
    QCborMap m_msg;
    mutable QHash<QPair<QString, int>, Frame> m_frames;
};

} // namespace robot

#endif
