// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_REPLAY_REPLAYBAR_H
#define HOST_WORKBENCH_REPLAY_REPLAYBAR_H

#include "host/workbench/window/Paced.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QSlider;
class QToolButton;

namespace host::device::replay {
class Replay;
struct PlayedCall;
} // namespace host::device::replay

namespace host::workbench::window {
class ElidedLabel;
} // namespace host::workbench::window

namespace host::workbench::replay {

/// Plays a recording, as a person would a film: where it stands, how fast it goes, and which call
/// is the present one, in words. Its actions are those of its buttons, for a menu.
class ReplayBar : public QWidget
{
    Q_OBJECT

public:
    /// @p replay outlives the bar. @p source says what is played.
    ReplayBar(device::replay::Replay& replay, const QString& source);

Q_SIGNALS:
    /// What a person should know of.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    QToolButton* addButton(const char* name, const QKeySequence& key);
    void arrange();
    void fillSpeeds();
    void translate();
    void chooseSpeed(int index);
    void findLongCall();
    void refresh();
    QString words() const;
    static QString inWords(const device::replay::PlayedCall& call);

    device::replay::Replay& m_replay;
    QString m_source;
    QSlider* m_position;
    QLabel* m_time;
    QToolButton* m_play;
    QToolButton* m_step;
    QToolButton* m_longCall;
    QCheckBox* m_loop;
    QLabel* m_speedLabel;
    QComboBox* m_speed;
    window::ElidedLabel* m_note;
    window::ElidedLabel* m_present;
    window::Paced m_shown;
};

} // namespace host::workbench::replay

#endif
