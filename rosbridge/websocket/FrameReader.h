// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_FRAMEREADER_H
#define ROSBRIDGE_WEBSOCKET_FRAMEREADER_H

#include "rosbridge/websocket/Frame.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace rosbridge::websocket {

/// Puts the frames that a peer sends together to messages. It never holds more than one message,
/// and of one that is too large no more than its two ends.
class FrameReader
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::websocket::FrameReader)

public:
    /// A message, or a ping, pong or close frame.
    struct Item
    {
        Opcode opcode = Opcode::Text;
        QByteArray data;
        qint64 leftOut =
            0; ///< bytes of a message too large to take; data has its beginning and end
    };

    struct Fault
    {
        CloseCode code = CloseCode::ProtocolError;
        QString text;
    };

    /// @p reader is this end. A server takes a message of more than @p maximumBytes as a fault; a
    /// client leaves it out, since everything else that the robot tells is still of use.
    FrameReader(Role reader, qint64 maximumBytes);

    /// The next item, as soon as all of it has come; reads what @p device has got, waits for
    /// nothing. Nothing ever again after a fault.
    std::optional<Item> read(QIODevice& device);

    /// The peer broke the rules.
    const std::optional<Fault>& fault() const { return m_fault; }

private:
    struct Header
    {
        Opcode opcode = Opcode::Text;
        bool isFinal = false;
        Mask mask{};
        qint64 length = 0;

        bool isControl() const { return static_cast<int>(opcode) >= 8; }
    };

    bool readHeader(QIODevice& device);
    void check(const Header& header);
    void beginMessage(const Header& header);
    void growMessage(const Header& header);
    void readPayload(QIODevice& device);
    void leaveOut(const QByteArray& bytes);
    std::optional<Item> endFrame();
    void fail(CloseCode code, const QString& text);

    Role m_role;
    qint64 m_maximumBytes;
    std::optional<Fault> m_fault;
    std::optional<Header> m_frame; // its payload is being read
    qint64 m_frameRead = 0;
    QByteArray m_control;
    bool m_isInMessage = false;
    bool m_isTooLarge = false; // the message, and left out
    Item m_message;
    QByteArray m_tail; // of a message that is left out
    int m_emptyFrames = 0;
};

} // namespace rosbridge::websocket

#endif
