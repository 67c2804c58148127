// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_QUANTITY_H
#define HOST_WORKBENCH_PLOTS_QUANTITY_H

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace host::device {
class Device;
}

namespace host::workbench::plots {

/// Something that is a number at any moment, or would be if the robot told it.
struct Quantity
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::plots::Quantity)

public:
    enum class Kind
    {
        Variable, ///< of the device
        Present,  ///< where an axis of the arm is
        Target,   ///< where it is to go
        Rate,     ///< of a topic's messages
        Field,    ///< of a topic's messages
    };

    Kind kind = Kind::Variable;
    QString name;  ///< of the variable, or our name of the topic; empty for an axis
    QString path;  ///< to the number, of a variable or a field
    int index = 0; ///< the variable's kind, or the axis

    bool isOfTopic() const { return kind != Kind::Variable; }

    /// The topic that tells it, our name.
    QString topic() const;

    /// As people read it, with the names that the device's robot has.
    QString inWords(device::Device& device) const;

    /// Where it is known, and empty elsewhere.
    QString unit(device::Device& device) const;

    /// How it is remembered, and back; nothing where @p key is none.
    QString key() const;
    static std::optional<Quantity> fromKey(const QString& key);

    bool operator==(const Quantity& other) const;
};

} // namespace host::workbench::plots

#endif
