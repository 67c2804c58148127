// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_APPLICATION_H
#define HOST_CHECK_STAGE_APPLICATION_H

#include <QApplication>

namespace host::check::stage {

class Complaints;

/// The application that a test's process is: an exception that a plugin lets out of an event
/// handler ends the event, and becomes a complaint. File dialogs are closed before anything can be
/// done in them.
class Application : public QApplication
{
public:
    /// @p complaints outlives it.
    Application(int& argc, char** argv, Complaints& complaints);

    bool notify(QObject* receiver, QEvent* event) override;

    using QObject::receivers; // to see who keeps connections with it

private:
    Complaints& m_complaints;
};

} // namespace host::check::stage

#endif
