// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_BASETAB_H
#define QUANDREL_BASETAB_H

#include "BaseDialog.h"
#include "Delivery.h"
#include "FakeHost.h"
#include "olm/core/Vector.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>

#include <initializer_list>
#include <memory>

/// A resolution as the device has it, of as many numbers as are given.
inline Variant size(std::initializer_list<unsigned int> numbers)
{
    olm::core::Vector<unsigned int> vector;
    for (const unsigned int number : numbers)
        vector.append(number);
    return vector;
}

/// The base tab on a host of its own, and its parts.
struct Tab
{
    FakeHost host;
    std::unique_ptr<BaseDialog> dialog;

    /// Without a resolution where @p resolution is empty, as with a device that has not told.
    explicit Tab(const Variant& resolution = Variant(), bool simulator = false,
                 bool disabled = false)
    {
        host.set(Kind::Config, "camera_resolution", resolution);
        host.set(Kind::State, "connectedToSimulator", simulator);
        host.set(Kind::Config, "disableDriveSystem", disabled);
        dialog = std::make_unique<BaseDialog>(host, nullptr);
    }

    QGroupBox& camera() const { return *dialog->findChild<QGroupBox*>(); }

    QComboBox& selector() const { return *camera().findChild<QComboBox*>(); }

    QCheckBox& disableDriveSystem() const { return *dialog->findChild<QCheckBox*>(); }

    QString frequency() const
    {
        return qobject_cast<QLabel*>(rows(1)->itemAt(0)->layout()->itemAt(1)->widget())->text();
    }

    QString log() const { return dialog->findChild<olm::qt::log::View*>()->toPlainText(); }

    QStringList resolutions() const
    {
        QStringList texts;
        for (int i = 0; i < selector().count(); ++i)
            texts.append(selector().itemText(i));
        return texts;
    }

    QStringList writes() const { return host.calls.filter("write"); }

    QLayout* rows(int index) const { return camera().layout()->itemAt(index)->layout(); }
};

/// What the list offers of a real and of a simulated camera.
const QStringList real{"320x240", "640x480"};
const QStringList simulated{"320x240", "640x480", "1024x768"};

#endif
