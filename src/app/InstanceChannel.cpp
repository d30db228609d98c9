// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/InstanceChannel.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

namespace nubo::app {

namespace {

constexpr int kWaitMs = 1000;

} // namespace

QString InstanceChannel::nameFor(const QString& executablePath)
{
    const QByteArray key =
        QCryptographicHash::hash(executablePath.toUtf8(), QCryptographicHash::Sha1).toHex();
    // The runtime folder is the user's own, so two users never share a channel.
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return QDir(folder).filePath(QStringLiteral("nubo-") + QString::fromLatin1(key.left(12)));
}

bool InstanceChannel::send(const QString& name, const QString& catalogue)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(kWaitMs))
        return false;
    socket.write(catalogue.toUtf8() + '\n');
    const bool sent = socket.waitForBytesWritten(kWaitMs);
    socket.disconnectFromServer();
    return sent;
}

InstanceChannel::InstanceChannel(const QString& name, QObject* parent)
    : QObject(parent), m_server(new QLocalServer(this))
{
    // A channel left behind by an instance that did not end cleanly is taken over.
    QLocalServer::removeServer(name);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &InstanceChannel::takeConnection);
    m_server->listen(name);
}

InstanceChannel::~InstanceChannel() = default;

// One line per connection: the catalogue's path, or nothing.
void InstanceChannel::takeConnection()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        const auto readRequest = [this, socket] {
            if (!socket->canReadLine())
                return;
            const QString line = QString::fromUtf8(socket->readLine()).chopped(1);
            socket->disconnectFromServer();
            socket->deleteLater();
            emit requested(line);
        };
        connect(socket, &QLocalSocket::readyRead, this, readRequest);
        readRequest(); // the line may have come with the connection
    }
}

} // namespace nubo::app
