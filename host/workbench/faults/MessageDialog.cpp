// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/faults/MessageDialog.h"

#include "host/device/Device.h"
#include "host/device/connection/MessageRole.h"
#include "host/workbench/values/ValueText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <limits>

namespace host::workbench::faults {

using olm::core::variant::Variant;
using ::plugin::plugin::DataRole;

namespace {

struct KnownRole
{
    const char* meaning;
    DataRole role;
    bool isText; // and otherwise a whole number
};

constexpr KnownRole knownRoles[] = {
    {QT_TRANSLATE_NOOP("host::workbench::faults::MessageDialog", "Line of the base log"),
     device::connection::baseLogLine, true},
    {QT_TRANSLATE_NOOP("host::workbench::faults::MessageDialog", "Line of the manipulator log"),
     device::connection::manipulatorLogLine, true},
    {QT_TRANSLATE_NOOP("host::workbench::faults::MessageDialog", "Line of the laser log"),
     device::connection::laserLogLine, true},
    {QT_TRANSLATE_NOOP("host::workbench::faults::MessageDialog", "Emphasised line of the base log"),
     device::connection::emphasisedBaseLogLine, true},
    {QT_TRANSLATE_NOOP("host::workbench::faults::MessageDialog", "State of the connection"),
     device::connection::connectionStateMessage, false},
    {QT_TRANSLATE_NOOP("host::workbench::faults::MessageDialog",
                       "State of the connection, for the icon"),
     DataRole(0), false},
};

} // namespace

MessageDialog::MessageDialog(device::Device& device, QWidget* parent)
    : QDialog(parent),
      m_device(device),
      m_roleLabel(new QLabel),
      m_role(new QSpinBox),
      m_meaningLabel(new QLabel),
      m_meaning(new QComboBox),
      m_typeLabel(new QLabel),
      m_type(new QComboBox),
      m_valueLabel(new QLabel),
      m_value(new QLineEdit),
      m_problem(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Close)),
      m_send(m_buttons->addButton(QString(), QDialogButtonBox::ActionRole))
{
    setObjectName("MessageDialog");
    m_meaning->setObjectName("meaning");
    for (const KnownRole& known : knownRoles)
        m_meaning->addItem(QString(), int(known.role));
    m_meaning->addItem(QString()); // any other
    m_role->setObjectName("role");
    m_role->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    m_type->setObjectName("type");
    m_type->addItems(values::enterableTypes());
    m_value->setObjectName("value");
    m_problem->setObjectName("problem");
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    m_problem->hide();
    m_send->setObjectName("send");
    m_meaningLabel->setBuddy(m_meaning);
    m_roleLabel->setBuddy(m_role);
    m_typeLabel->setBuddy(m_type);
    m_valueLabel->setBuddy(m_value);

    auto* form = new QFormLayout;
    form->addRow(m_meaningLabel, m_meaning);
    form->addRow(m_roleLabel, m_role);
    form->addRow(m_typeLabel, m_type);
    form->addRow(m_valueLabel, m_value);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_problem);
    layout->addStretch();
    layout->addWidget(m_buttons);
    m_send->setDefault(true); // for Return in any field

    connect(m_meaning, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        const QVariant role = m_meaning->itemData(index);
        if (role.isValid())
            return m_role->setValue(role.toInt());
        m_role->setFocus();
        m_role->selectAll();
    });
    connect(m_role, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &MessageDialog::onRoleChanged);
    connect(m_send, &QPushButton::clicked, this, &MessageDialog::send);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    translate();
    m_role->setValue(knownRoles[0].role);
    resize(60 * fontMetrics().averageCharWidth(), 0);
}

void MessageDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void MessageDialog::translate()
{
    setWindowTitle(tr("Message to the widgets of %1").arg(m_device.name()));
    m_meaningLabel->setText(tr("&Meaning:"));
    m_meaning->setAccessibleName(tr("Meaning of the message"));
    int index = 0;
    for (const KnownRole& known : knownRoles)
        m_meaning->setItemText(index++, tr(known.meaning));
    m_meaning->setItemText(index, tr("Another one"));
    m_roleLabel->setText(tr("&Role:"));
    m_role->setAccessibleName(tr("Number of the role"));
    m_typeLabel->setText(tr("&Type:"));
    m_type->setAccessibleName(tr("Type of the value"));
    m_type->setItemText(0, values::enterableTypes().first());
    m_valueLabel->setText(tr("&Value:"));
    m_value->setAccessibleName(tr("Value of the message"));
    m_send->setText(tr("&Send"));
    m_send->setToolTip(tr("Sends the message to all widgets of the device."));
}

void MessageDialog::onRoleChanged()
{
    int index = m_meaning->findData(m_role->value());
    if (index < 0)
        index = m_meaning->count() - 1;
    else
        m_type->setCurrentIndex(
            values::enterableType(knownRoles[index].isText ? Variant(QString()) : Variant(0)));
    m_meaning->setCurrentIndex(index);
}

void MessageDialog::send()
{
    QString problem;
    const auto value = values::fromText(m_type->currentIndex(), m_value->text(), &problem);
    m_problem->setText(problem);
    m_problem->setVisible(!value);
    if (value)
        m_device.sendMessage(DataRole(m_role->value()), *value);
    m_value->setFocus();
    m_value->selectAll();
}

} // namespace host::workbench::faults
