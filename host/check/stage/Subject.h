// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_SUBJECT_H
#define HOST_CHECK_STAGE_SUBJECT_H

#include "host/check/stage/Actions.h"
#include "host/loading/PluginLoader.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <random>
#include <string>

namespace plugin::gui {
class Interface;
}

namespace host::check::stage {

class Complaints;

/// The plugin that a test is about, and the widget of it.
class Subject
{
public:
    /// What was asked for on the command line.
    struct Target
    {
        QString file;
        QString device;            ///< empty: as the plugin names it
        QList<QByteArray> widgets; ///< one for a test of a widget, else all that are asked for
        QString journal;           ///< the file for what is done with the widget
        std::optional<ActionList> actions; ///< that are to be played; none: they are drawn
        int effort = 100;         ///< how much of what is repeated often is done, in percent
        QList<QByteArray> spared; ///< variables that get only values of a sound device
        QString recording;        ///< a file; empty: none
    };

    /// @p seed gives the numbers of random(), the same in every run. @p complaints outlives it.
    Subject(const Target& target, quint32 seed, Complaints& complaints);

    const QString& file() const { return m_target.file; }

    const QList<QByteArray>& widgets() const { return m_target.widgets; }

    /// The one that the test is about.
    const QByteArray& widget() const { return m_target.widgets.first(); }

    /// Loads the plugin when it is called first. Fails the test where that fails.
    const ::plugin::gui::Interface& interface();
    const loading::PluginLoader& loader(); ///< likewise

    /// The name by which widgets are asked for.
    QByteArray device();

    /// Of the plugin at work; empty where none was given.
    const QString& recording() const { return m_target.recording; }

    const QString& journal() const { return m_target.journal; }

    const std::optional<ActionList>& actions() const { return m_target.actions; }

    /// Something to be told of a test that passed.
    void remark(const QString& words) { m_remark = words; }

    const QString& remark() const { return m_remark; }

    /// Of @p full, how often to do what is repeated often: at least @p least times.
    int share(int full, int least = 1) const;

    bool isSpared(const std::string& variable) const;

    std::mt19937& random() { return m_random; }

    Complaints& complaints() { return m_complaints; }

private:
    const Target m_target;
    std::mt19937 m_random;
    QString m_remark;
    Complaints& m_complaints;
    std::optional<loading::PluginLoader> m_loader;
};

} // namespace host::check::stage

#endif
