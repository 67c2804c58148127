#ifndef ROBOT_TERMINATIONSIGNALS_H
#define ROBOT_TERMINATIONSIGNALS_H

#include <QObject>
#include <QSocketNotifier>

namespace robot {

/// Turns SIGINT and SIGTERM into a Qt signal. For programs only: it changes what these do to
/// the whole process, and has to be built before any other thread.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

Q_SIGNALS:
    void received();

private:
    int m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace robot

#endif
