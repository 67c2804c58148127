// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef FUZZ_LINKINPUT_H
#define FUZZ_LINKINPUT_H

#include <QByteArray>
#include <QCborMap>
#include <QString>

#include <optional>
#include <vector>

/// One frame of the robot link as it comes from the socket.
struct InputFrame
{
    bool isBinary = false;
    QByteArray bytes;
};

/// The frames of an input, which "\n--\n" separates: a 'b' before a binary one, a 't' (or any other
/// byte) before a text one.
std::vector<InputFrame> framesOf(const QByteArray& input);

/// Decodes as both ends of the link do; requires that what is refused is so with a reason.
std::optional<QCborMap> decode(const InputFrame& frame, QString* error);

#endif
