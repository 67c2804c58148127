// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_CBORCHECK_H
#define ROSBRIDGE_PROTOCOL_CBORCHECK_H

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace rosbridge::protocol {

/// One pass over CBOR of any origin before Qt builds values of it: it allocates no more than
/// the bytes there are can justify, never recurses, and accepts only what a rosbridge message
/// may hold. UTF-8 is left to Qt to judge.
class CborCheck
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::protocol::CborCheck)

public:
    /// @p cbor must outlive the check.
    CborCheck(const QByteArray& cbor, int maximumDepth);

    /// What is wrong, with the byte's position; nothing if @p cbor is exactly one value. Call
    /// once.
    std::optional<QString> fault();

    /// What is wrong where there are more than maximumValues or maximumParts, in any form.
    static QString tooManyText();

private:
    /// A map or an array that is not yet complete.
    struct Container
    {
        bool isMap = false;
        bool isOpenEnded = false;
        quint64 itemsLeft = 0; // a key and its value are two; not counted when open-ended
        bool isKeyNext = false;
        std::set<std::string_view> keys;
    };

    void readItem();
    void readText(quint64 length, bool isKey);
    void readTag(quint64 tag);
    void readBreak();
    void enter(bool isMap, std::optional<quint64> length);
    void checkDepth();
    void completeItem();
    std::optional<quint64> readArgument(unsigned info);
    std::string_view readBytes(quint64 length);
    unsigned readByte();
    void fail(const QString& why);

    std::string_view m_data;
    int m_maximumDepth;
    size_t m_position = 0;
    int m_values = 0;
    int m_parts = 0;
    std::vector<Container> m_open;
    std::optional<QString> m_fault;
};

} // namespace rosbridge::protocol

#endif
