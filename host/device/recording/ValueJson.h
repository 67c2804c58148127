// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_VALUEJSON_H
#define HOST_DEVICE_RECORDING_VALUEJSON_H

#include "olm/core/variant/Variant.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace host::device::recording {

/// What a recording knows of a value whose type this program does not: the name of that.
struct UnknownValue
{
    QString type; ///< as its source spells it
};

/// How a value stands in a recording: {"type": "string", "value": "10.0.0.1"}, as in a device's
/// file, with further types. See docs/recording.md.
class ValueJson
{
    Q_DECLARE_TR_FUNCTIONS(host::device::recording::ValueJson)

public:
    using Variant = olm::core::variant::Variant;

    /// Appends the members of the object, without its braces, to a text.
    static void append(QByteArray& json, const Variant& value);

    /// Every float and double reads back as the same one, a NaN as any NaN. A value of an unknown
    /// type is an UnknownValue. Nothing, and in @p error why, if the object is none of these.
    static std::optional<Variant> read(const QJsonObject& json, QString* error);

    /// A text as JSON, with its quotation marks.
    static QByteArray quoted(const QString& text);
};

} // namespace host::device::recording

#endif
