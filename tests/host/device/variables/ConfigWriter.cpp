// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/Device.h"
#include "host/device/Environment.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstring>

namespace {

class EmptyEnvironment : public host::device::Environment
{
public:
    QString translate(const QString& text) const override { return text; }

    QString currentLanguage() const override { return QStringLiteral("en"); }

    QAction* helpAction(const QString&) override { return nullptr; }
};

void say(int number)
{
    std::printf("%d\n", number);
    std::fflush(stdout);
}

} // namespace

/// Writes configuration variables for the device "robot" until it is killed, and says each
/// number that was written. Arguments: the storage folder; with a second one, "transaction",
/// it stops for good before the end of a transaction.
int main(int argc, char** argv)
{
    using Kind = plugin::gui::VariableKind;
    const QCoreApplication application(argc, argv);
    EmptyEnvironment environment;
    host::device::Device device(QStringLiteral("robot"), QString::fromLocal8Bit(argv[1]),
                                environment);
    const bool stopsInTransaction = argc > 2 && std::strcmp(argv[2], "transaction") == 0;
    for (int number = 1;; ++number) {
        device.beginTransaction(QStringLiteral("Set both"));
        device.write(Kind::Config, "first", number);
        device.write(Kind::Config, "second", number);
        if (stopsInTransaction && number == 2) {
            say(number);
            return QCoreApplication::exec();
        }
        device.endTransaction();
        say(number);
    }
}
