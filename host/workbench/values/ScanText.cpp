// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/ScanText.h"

#include "host/device/readers/ScanReader.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace host::workbench::values {

using olm::core::LaserScanMessage;

namespace {

struct ScanText
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::ScanText)
};

/// The shortest that reads back as the same float: 0.1 and not 0.10000000149011612.
QJsonValue number(float value)
{
    if (!std::isfinite(value))
        return QJsonValue::Null;
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer - 1, value);
    *result.ptr = '\0';
    return std::strtod(buffer, nullptr);
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

} // namespace host::workbench::values
