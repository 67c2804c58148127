// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_JSONWRITER_H
#define ROSBRIDGE_PROTOCOL_JSONWRITER_H

#include <QByteArray>

QT_BEGIN_NAMESPACE
class QCborArray;
class QCborMap;
class QCborValue;
class QString;
QT_END_NAMESPACE

namespace rosbridge::protocol {

/// Writes a value as JSON without spaces, in UTF-8, fields in their order.
///
/// Every number is the shortest text that reads as the same number in its own type; the float 0.1
/// is "0.1", not the 19 digits of the double that is equal to it. JSON has no NaN and no infinity,
/// they become null. Typed arrays become plain arrays, and byte strings base64 text, as rosbridge
/// has it for uint8[]; what the link does not carry becomes null. A text with half of a surrogate
/// pair keeps it: all of that text is escaped.
class JsonWriter
{
public:
    /// Appends @p value to the text.
    void write(const QCborValue& value);

    QByteArray text() const { return m_text; }

private:
    void writeString(const QString& string);
    void writeUtf8(const QByteArray& utf8);
    void writeEscape(ushort utf16);
    void writeArray(const QCborArray& array);
    void writeMap(const QCborMap& map);
    void writeTypedArray(const QCborValue& value);
    template <typename Number>
    void writeNumber(Number number);
    void close(char bracket);

    QByteArray m_text;
};

} // namespace rosbridge::protocol

#endif
