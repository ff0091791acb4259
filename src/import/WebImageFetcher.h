#pragma once

#include "import/WebImage.h"

#include <QPointer>
#include <QThreadPool>
#include <QTimer>
#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

namespace mosaro::importing {

/// What a download may cost.
struct FetchLimits {
    int wholeTime = 120'000; ///< In milliseconds, as the next.
    int silence = 20'000;    ///< Without a byte.
    qint64 bytes = 256LL * 1024 * 1024;
};

/// Brings one picture from the web or the clipboard into a file of a folder, without the main thread ever
/// waiting. Only http, https and data addresses are followed, redirections included. One picture at a time.
class WebImageFetcher : public QObject {
    Q_OBJECT

public:
    explicit WebImageFetcher(QString folder, FetchLimits limits = {}, QObject* parent = nullptr);
    /// Ends a download, and takes away a file that nobody heard of.
    ~WebImageFetcher() override;

    void fetch(const WebImageRequest& request);
    void write(const LoosePicture& picture);
    /// Ends what goes on; finished() follows, with nothing.
    void cancel();

Q_SIGNALS:
    void progressed(int percent);
    /// Once for each fetch() and write(), and never from within them. Nothing when no picture came of it.
    void finished(const std::optional<mosaro::importing::ImportItem>& item);

private:
    void download(const QUrl& url);
    void take();
    void downloaded();
    void giveUp();
    void written();
    void writeOrGiveUp(const std::optional<LoosePicture>& picture);
    void discard();

    QString m_folder;
    FetchLimits m_limits;
    std::unique_ptr<QNetworkAccessManager> m_network;
    QPointer<QNetworkReply> m_reply;
    QTimer m_clock;
    QByteArray m_data;
    std::shared_ptr<std::optional<ImportItem>> m_file; ///< Filled by the worker; empty while none writes.
    bool m_isCancelled = false;
    QThreadPool m_writer;
};

} // namespace mosaro::importing
