// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>
#include <QTimer>
#include <QWebSocket>
#include <QWebSocketServer>

/// Sends the bytes of a file at regular intervals to every client that has said something:
/// bare-server FILE text|binary MILLISECONDS
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QFile file(arguments.value(1));
    if (arguments.size() != 4 || !file.open(QIODevice::ReadOnly))
        return 2;
    const QByteArray message = file.readAll();
    const bool isText = arguments[2] == QLatin1String("text");
    const QString text = isText ? QString::fromUtf8(message) : QString();

    QWebSocketServer server(QStringLiteral("bare"), QWebSocketServer::NonSecureMode);
    if (!server.listen(QHostAddress::LocalHost))
        return 1;
    QList<QWebSocket*> clients;
    QObject::connect(&server, &QWebSocketServer::newConnection, &server, [&] {
        QWebSocket* const client = server.nextPendingConnection();
        QObject::connect(client, &QWebSocket::textMessageReceived, &server,
                         [&clients, client] { clients << client; });
        QObject::connect(client, &QWebSocket::disconnected, &server, [&clients, client] {
            clients.removeAll(client);
            client->deleteLater();
        });
    });
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &server, [&] {
        for (QWebSocket* client : std::as_const(clients)) {
            if (isText)
                client->sendTextMessage(text);
            else
                client->sendBinaryMessage(message);
        }
    });
    timer.start(arguments[3].toInt());
    QTextStream(stdout) << "listening on " << server.serverUrl().toString() << Qt::endl;
    return QCoreApplication::exec();
}
