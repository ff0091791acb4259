#include "import/WebImageFetcher.h"

#include "base/Threads.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <utility>

namespace mosaro::importing {

namespace {

constexpr int kMostRedirections = 10;

QNetworkRequest requestFor(const QUrl& url, int silence)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    // Never from https to http, and to nothing but these two.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirections);
    request.setTransferTimeout(silence);
    return request;
}

} // namespace

WebImageFetcher::WebImageFetcher(QString folder, FetchLimits limits, QObject* parent)
    : QObject(parent), m_folder(std::move(folder)), m_limits(limits),
      m_network(std::make_unique<QNetworkAccessManager>())
{
    m_clock.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &WebImageFetcher::cancel);
}

WebImageFetcher::~WebImageFetcher()
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
    }
    m_writer.waitForDone();
    discard();
}

void WebImageFetcher::fetch(const WebImageRequest& request)
{
    m_isCancelled = false;
    const QString scheme = request.url.scheme();
    if (!request.downloads) {
        writeOrGiveUp(droppedPicture(request, QDateTime::currentDateTime()));
    } else if (isDataAddress(request.url)) {
        writeOrGiveUp(
            downloadedPicture(request.url, dataOfAddress(request.url), QDateTime::currentDateTime()));
    } else if (scheme == QLatin1String("http") || scheme == QLatin1String("https")) {
        download(request.url);
    } else {
        giveUp();
    }
}

void WebImageFetcher::download(const QUrl& url)
{
    m_data.clear();
    m_reply = m_network->get(requestFor(url, m_limits.silence));
    connect(m_reply, &QNetworkReply::readyRead, this, &WebImageFetcher::take);
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (total > m_limits.bytes) {
            cancel();
        } else if (total > 0) {
            Q_EMIT progressed(static_cast<int>(received * 100 / total));
        }
    });
    connect(m_reply, &QNetworkReply::finished, this, &WebImageFetcher::downloaded, Qt::QueuedConnection);
    m_clock.start(m_limits.wholeTime);
}

void WebImageFetcher::take()
{
    m_data += m_reply->readAll();
    if (m_data.size() > m_limits.bytes) {
        cancel();
    }
}

void WebImageFetcher::downloaded()
{
    m_clock.stop();
    QNetworkReply* reply = std::exchange(m_reply, nullptr).data();
    reply->deleteLater();
    const QByteArray data = std::exchange(m_data, {}) + (reply->isOpen() ? reply->readAll() : QByteArray());
    const bool isWhole = reply->error() == QNetworkReply::NoError && !m_isCancelled;
    const QUrl url = reply->request().url();
    writeOrGiveUp(isWhole ? downloadedPicture(url, data, QDateTime::currentDateTime()) : std::nullopt);
}

void WebImageFetcher::writeOrGiveUp(const std::optional<LoosePicture>& picture)
{
    if (picture) {
        write(*picture);
    } else {
        giveUp();
    }
}

void WebImageFetcher::giveUp()
{
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT finished(std::nullopt); }, Qt::QueuedConnection);
}

void WebImageFetcher::write(const LoosePicture& picture)
{
    m_isCancelled = false;
    m_file = std::make_shared<std::optional<ImportItem>>();
    base::runOnWorker(m_writer, [this, file = m_file, picture, folder = m_folder] {
        *file = writePicture(picture, folder);
        base::postToMain(*this, [this] { written(); });
    });
}

void WebImageFetcher::written()
{
    if (m_isCancelled) {
        discard();
        Q_EMIT finished(std::nullopt);
        return;
    }
    // The file is the listener's from here on.
    Q_EMIT finished(*std::exchange(m_file, nullptr));
}

void WebImageFetcher::discard()
{
    if (m_file && *m_file) {
        QFile::remove((*m_file)->path);
    }
    m_file.reset();
}

void WebImageFetcher::cancel()
{
    m_isCancelled = true;
    if (m_reply) {
        m_reply->abort();
    }
}

} // namespace mosaro::importing
