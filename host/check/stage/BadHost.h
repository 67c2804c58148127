// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_BADHOST_H
#define HOST_CHECK_STAGE_BADHOST_H

#include "host/check/stage/RecordingHost.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace host::check::stage {

/// What a host throws that has lost its device.
struct HostFailure : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// A host on which something is wrong, as a test sets it before a widget is built on it. Its
/// notifications reach widgets that were not translated yet, too.
class BadHost : public RecordingHost
{
public:
    /// For the variable of that name, which is empty for commands and properties.
    using Answer = std::function<Variant(const std::string& name)>;

    enum class Writes
    {
        Taken,
        Refused,  ///< the variable stays as it is
        Forgotten ///< likewise, and whatever is read is empty
    };

    using RecordingHost::RecordingHost;

    /// What commands and properties are answered with, and what a variable is when it is read
    /// first: asked for each anew.
    void answerWith(const Answer& answer) { m_answer = answer; }
    void treatWritesAs(Writes writes) { m_writes = writes; }
    /// Tells widgets @p times of each variable that was written since the last time.
    void answerWrites(int times);

    /// Lets the call of that number, from 0, throw a HostFailure.
    void throwAt(int call) { m_failing = call; }
    int callCount() const { return m_callCount; }
    /// The call that threw, in words: "to write the ...".
    QString failedCall() const { return m_failedCall; }

    Variant read(Kind kind, const char* name) const override;
    void write(Kind kind, const char* name, const Variant& value) override;
    Variant property(Kind kind, const char* name, const char* property) const override;
    bool connectDevice() override;
    bool disconnectDevice() override;
    Variant simulationDirectExec(const Variant& role, const Variant& value) override;
    QString translate(const QString& text) const override;
    QString currentLanguage() const override;
    QAction* helpAction(const QString& context) const override;
    void widgetAdded(plugin::gui::DeviceWidget& widget) override;
    void widgetRemoved(plugin::gui::DeviceWidget& widget) override;

    using RecordingHost::translate;

private:
    void expectWidget(const QString& call) const override;
    void deliver(const char* what, device::trace::Arguments arguments,
                 const Notification& notify) override;
    void count(const QString& call) const;

    Answer m_answer = [](const std::string&) { return Variant(); };
    mutable std::map<Variable, Variant> m_first; // what variables were when they were read first
    Writes m_writes = Writes::Taken;
    std::vector<std::pair<Variable, Variant>> m_unanswered;
    int m_failing = -1;
    mutable int m_callCount = 0;
    mutable QString m_failedCall;
    std::vector<plugin::gui::DeviceWidget*> m_all; // in the order in which they were added
};

} // namespace host::check::stage

#endif
