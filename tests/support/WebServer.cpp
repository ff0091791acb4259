#include "support/WebServer.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace mosaro::test {

WebServer::WebServer() : m_server(std::make_unique<QTcpServer>())
{
    QObject::connect(m_server.get(), &QTcpServer::newConnection, m_server.get(), [this] { serve(); });
    if (!m_server->listen(QHostAddress::LocalHost)) {
        qFatal("no port for the web server");
    }
}

WebServer::~WebServer() = default;

void WebServer::serve()
{
    QTcpSocket* socket = m_server->nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::readyRead, m_server.get(), [this, socket] {
        const QByteArray path = socket->readLine().split(' ').value(1);
        socket->readAll();
        ++asked;
        if (answers.contains(path)) {
            socket->write(answers.value(path));
            socket->disconnectFromHost();
        }
    });
}

QUrl WebServer::url(const QString& path) const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_server->serverPort()).arg(path));
}

QByteArray WebServer::answer(const QByteArray& body, const QByteArray& status, const QByteArray& moreHead)
{
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + moreHead +
           "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

} // namespace mosaro::test
