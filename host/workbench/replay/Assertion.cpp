// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/replay/Assertion.h"

#include "host/device/replay/Conversation.h"
#include "host/device/replay/Player.h"
#include "host/loading/PluginLoader.h"

#include <QVBoxLayout>
#include <QWidget>

namespace host::workbench::replay {

using device::replay::Conversation;
using device::replay::Player;

Assertion::Assertion(const QString& file, const loading::PluginLoader& plugin)
{
    if (const auto failure = plugin.failure())
        m_words += failure->text();
    else
        play(file, plugin);
}

void Assertion::play(const QString& file, const loading::PluginLoader& plugin)
{
    QString error;
    const auto conversation = Conversation::open(file, &error);
    if (!conversation) {
        m_words += error;
        return;
    }
    QWidget parent; // which is not shown
    new QVBoxLayout(&parent);
    Player player(*plugin.interface(), conversation->initialState(), parent);
    int played = 0;
    std::size_t asked = 0;
    while (const auto call = conversation->next()) {
        player.play(*call);
        if (!player.difference().isEmpty()) {
            m_words += player.difference();
            return;
        }
        QCoreApplication::processEvents(); // what the plugin has put off
        ++played;
        asked += call->answers.size();
    }
    m_isSame = conversation->error().isEmpty();
    if (m_isSame)
        m_words += tr("The plugin did the same: %1 calls played, %2 calls compared.")
                       .arg(QString::number(played), QString::number(asked));
    else
        m_words += conversation->error();
}

} // namespace host::workbench::replay
