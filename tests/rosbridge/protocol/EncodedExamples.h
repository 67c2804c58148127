// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_TESTS_ENCODEDEXAMPLES_H
#define ROSBRIDGE_PROTOCOL_TESTS_ENCODEDEXAMPLES_H

#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace encoded_examples {

using namespace rosbridge::protocol;

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();

/// One message with every kind of value that the link carries.
inline QCborMap everyKind()
{
    const QCborMap header{{QStringLiteral("frame_id"), QStringLiteral("laser \u00e9\u4e16")},
                          {QStringLiteral("stamp"), qint64(1234567890123)}};
    const QCborMap msg{{QStringLiteral("header"), header},
                       {QStringLiteral("ok"), true},
                       {QStringLiteral("nothing"), QCborValue(nullptr)},
                       {QStringLiteral("angle"), -0.125},
                       {QStringLiteral("names"), QCborArray{QStringLiteral("a"), 2, false}},
                       {QStringLiteral("data"), QByteArray("\x00\xff\xfe", 3)},
                       {QStringLiteral("ranges"), typedArray({1.5F, -2.0F})}};
    return {{QStringLiteral("op"), QStringLiteral("publish")},
            {QStringLiteral("topic"), QStringLiteral("/scan")},
            {QStringLiteral("msg"), msg}};
}

/// A message in CBOR whose only other field "x" has the bytes @p value.
inline QByteArray cborWith(const QByteArray& value)
{
    return QByteArray::fromHex("a2626f706161") + QByteArray::fromHex("6178") + value;
}

inline QJsonObject object(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object();
}

} // namespace encoded_examples

#endif
