#pragma once

#include <QHash>
#include <QUrl>
#include <memory>

class QTcpServer;

namespace mosaro::test {

/// A web server of this machine that gives fixed answers by path; what has none is never answered.
class WebServer {
public:
    WebServer();
    ~WebServer();

    QHash<QByteArray, QByteArray> answers; ///< Whole, with the head.
    int asked = 0;
    [[nodiscard]] QUrl url(const QString& path) const;
    /// An answer with these parts.
    [[nodiscard]] static QByteArray answer(const QByteArray& body, const QByteArray& status = "200 OK",
                                           const QByteArray& moreHead = {});

private:
    void serve();

    std::unique_ptr<QTcpServer> m_server;
};

} // namespace mosaro::test
