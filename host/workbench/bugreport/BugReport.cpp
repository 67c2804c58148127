// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/bugreport/BugReport.h"

#include "host/device/Device.h"
#include "host/loading/NeededLibraries.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/events/EventModel.h"
#include "host/workbench/traffic/TrafficModel.h"
#include "host/workbench/values/TableFile.h"
#include "host/workbench/values/ValueText.h"
#include "plugin/gui/Interface.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QSysInfo>
#include <QUrl>

namespace host::workbench::bugreport {

using device::Device;
using ::plugin::gui::VariableKind;

namespace {

constexpr qint64 mostBytes = qint64{1024} * 1024; // of a file of settings

QJsonObject settingsIn(const QFileInfo& info)
{
    QFile file(info.filePath());
    if (!info.isFile() || info.size() > mostBytes || !file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

QFileInfoList settingsFiles(const QString& folder)
{
    return QDir(folder).entryInfoList({"*.json", "*.joints", "*.drive", "*.names", "*.preferences"},
                                      QDir::Files, QDir::Name);
}

/// All texts in @p value, at any depth.
QStringList textsIn(const QJsonValue& value)
{
    QStringList texts;
    if (value.isString())
        texts << value.toString();
    for (const QJsonValue each : value.toArray())
        texts << textsIn(each);
    const QJsonObject object = value.toObject();
    for (const QString& key : object.keys())
        texts << textsIn(object.value(key));
    return texts;
}

/// As the docks "Events" and "Traffic" would save it.
template <class Model, class Source>
QString table(Source& source)
{
    Model model(source);
    model.setActive(true);
    return QString::fromUtf8(values::tableText(model));
}

} // namespace

qint64 Part::size() const
{
    return file.isEmpty() ? content.size() : QFileInfo(file).size();
}

BugReport::BugReport(const loading::PluginLoader& plugin, const QList<Device*>& devices,
                     const QString& settings)
    : m_privacy(addressesIn(settings, devices))
{
    addVersions();
    addPlugin(plugin);
    for (Device* device : devices)
        addDevice(*device);
    addSettings(settings);
}

/// The plugin's settings are what knows them, and what the device was told on the command line.
QStringList BugReport::addressesIn(const QString& settings, const QList<Device*>& devices)
{
    QStringList addresses;
    for (const QFileInfo& file : settingsFiles(settings)) {
        const QJsonObject entries = settingsIn(file);
        for (const char* name : {"ipAddress", "ipAddressHistory"})
            addresses << textsIn(entries.value(QLatin1String(name)).toObject().value("value"));
    }
    for (const Device* device : devices) {
        const auto address = device->read(VariableKind::Config, "ipAddress");
        const auto history = device->read(VariableKind::Config, "ipAddressHistory");
        addresses << values::toText(address)
                  << textsIn(QJsonDocument::fromJson(values::toText(history).toUtf8()).array());
    }
    return addresses;
}

void BugReport::add(const QString& name, const QStringList& lines)
{
    m_parts.append({name, m_privacy.clean(lines.join('\n')).toUtf8()});
}

/// In English, whatever the language: others are to read it.
void BugReport::addVersions()
{
    add("versions.txt",
        {QCoreApplication::applicationName() + ' ' + QCoreApplication::applicationVersion(),
         QStringLiteral("Qt %1, built with %2").arg(QLatin1String(qVersion()), QT_VERSION_STR),
         QStringLiteral("platform: %1").arg(QGuiApplication::platformName()),
         QStringLiteral("system: %1, %2 %3, %4")
             .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                  QSysInfo::currentCpuArchitecture()),
         QStringLiteral("locale: %1").arg(QLocale::system().name()), QString()});
}

void BugReport::addPlugin(const loading::PluginLoader& plugin)
{
    const QFileInfo info(plugin.file());
    QStringList lines{plugin.file()};
    QFile file(plugin.file());
    if (info.isFile() && file.open(QIODevice::ReadOnly)) {
        QCryptographicHash hash(QCryptographicHash::Sha256);
        hash.addData(&file);
        lines
            << QStringLiteral("size: %1").arg(info.size())
            << QStringLiteral("modified: %1").arg(info.lastModified().toUTC().toString(Qt::ISODate))
            << QStringLiteral("SHA-256: %1").arg(QLatin1String(hash.result().toHex()));
        for (const QByteArray& library : loading::neededLibraries(plugin.file()))
            lines << QStringLiteral("needs: %1").arg(QString::fromLocal8Bit(library));
    }
    if (const auto* interface = plugin.interface()) {
        lines << QStringLiteral("vendor: %1")
                     .arg(QString::fromLatin1(interface->info().vendor().c_str()))
              << QStringLiteral("device: %1")
                     .arg(QString::fromLatin1(interface->info().name().c_str()));
    }
    if (const auto failure = plugin.failure())
        lines << failure->text();
    add("plugin.txt", lines << QString());
}

void BugReport::addDevice(Device& device)
{
    const QString folder = QString::fromLatin1(QUrl::toPercentEncoding(device.name())) + '/';
    const auto& failure = device.connection().lastFailure();
    add(folder + "state.txt",
        {QStringLiteral("connection: %1, %2")
             .arg(QString::number(device.connectionState()), device.status()),
         QStringLiteral("last failure: %1 %2")
             .arg(failure.time.toString(Qt::ISODate), failure.words),
         QStringLiteral("faults: %1").arg(device.faults().summary()), QString()});
    const QString recording = device.recorder().file();
    if (!device.recorder().isRecording() && QFileInfo(recording).isFile())
        m_parts.append({folder + "recording.bag", {}, recording});
    add(folder + "events.csv", {table<events::EventModel>(device.events())});
    add(folder + "traffic.csv", {table<traffic::TrafficModel>(device.traffic())});
}

void BugReport::addSettings(const QString& folder)
{
    for (const QFileInfo& file : settingsFiles(folder)) {
        m_parts.append({"settings/" + file.fileName(),
                        QJsonDocument(m_privacy.clean(settingsIn(file))).toJson()});
    }
}

} // namespace host::workbench::bugreport
