// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/ScanText.h"

#include "host/device/readers/ScanReader.h"
#include "host/workbench/values/FloatText.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace host::workbench::values {

using olm::core::LaserScanMessage;

namespace {

struct ScanText
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::ScanText)
};

QJsonValue number(float value)
{
    return std::isfinite(value) ? QJsonValue(floatText(value).toDouble()) : QJsonValue::Null;
}

QJsonArray numbers(const olm::core::Vector<float>& values)
{
    QJsonArray array;
    for (unsigned int i = 0; i < values.size(); ++i)
        array.append(number(values.data()[i]));
    return array;
}

} // namespace

QString scanToText(const LaserScanMessage& scan)
{
    const QJsonObject stamp{{"secs", static_cast<qint64>(scan.timeStamp / 1000)},
                            {"nsecs", static_cast<qint64>(scan.timeStamp % 1000) * 1000000}};
    const QJsonObject header{{"seq", static_cast<qint64>(scan.sequenceNumber)},
                             {"stamp", stamp},
                             {"frame_id", QString::fromStdString(scan.frameId)}};
    const QJsonObject message{{"header", header},
                              {"angle_min", number(scan.minimumAngle)},
                              {"angle_max", number(scan.maximumAngle)},
                              {"angle_increment", number(scan.angleIncrement)},
                              {"time_increment", number(scan.timeIncrement)},
                              {"scan_time", number(scan.scanTime)},
                              {"range_min", number(scan.minimumRange)},
                              {"range_max", number(scan.maximumRange)},
                              {"ranges", numbers(scan.ranges)},
                              {"intensities", numbers(scan.intensities)}};
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

std::optional<LaserScanMessage> scanFromText(const QString& text, QString* error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &parseError);
    QString fault = parseError.errorString();
    if (document.isObject()) {
        fault.clear();
        auto scan =
            device::readers::ScanReader().read(QCborMap::fromJsonObject(document.object()), &fault);
        if (scan)
            return scan;
    }
    *error = ScanText::tr("This is no scan (%1): write a sensor_msgs/LaserScan as JSON, for "
                          "example the one that is shown for another scan.")
                 .arg(fault);
    return std::nullopt;
}

QByteArray scanTable(const LaserScanMessage& scan)
{
    const QByteArray head =
        QByteArray::number(scan.sequenceNumber) + ',' +
        QByteArray::number(scan.timeStamp / 1000.0, 'f', 3) + ",\"" +
        QString::fromStdString(scan.frameId).replace('"', QStringLiteral("\"\"")).toUtf8() + "\",";
    QByteArray table = "seq,stamp,frame_id,angle,range,intensity\r\n";
    for (unsigned int i = 0; i < scan.ranges.size(); ++i) {
        table += head + floatText(scan.minimumAngle + static_cast<float>(i) * scan.angleIncrement) +
                 ',' + floatText(scan.ranges.data()[i]) + ',';
        if (i < scan.intensities.size())
            table += floatText(scan.intensities.data()[i]);
        table += "\r\n";
    }
    return table;
}

} // namespace host::workbench::values
