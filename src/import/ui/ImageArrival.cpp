#include "import/ui/ImageArrival.h"

#include "base/Text.h"
#include "import/WebImageFetcher.h"
#include "kit/Look.h"
#include "kit/ProgressView.h"
#include "kit/Sheet.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace mosaro::importing {

namespace {

QPushButton* makeStopButton()
{
    auto* stop = new QPushButton(base::text("Basic.Stop"));
    stop->setObjectName(QStringLiteral("stopDownload"));
    stop->setToolTip(base::text("Tooltip.Stop.Download"));
    stop->setShortcut(Qt::Key_Escape);
    return stop;
}

} // namespace

ImageArrival::ImageArrival(QWidget& pane) : QObject(&pane), m_pane(pane) {}

ImageArrival::~ImageArrival()
{
    delete m_sheet.data();
}

void ImageArrival::fetch(const WebImageRequest& request, const QString& folder, Arrived arrived)
{
    if (isBusy()) {
        return;
    }
    WebImageFetcher& fetcher = start(folder, std::move(arrived));
    showSheet(fetcher);
    fetcher.fetch(request);
}

void ImageArrival::write(const LoosePicture& picture, const QString& folder, Arrived arrived)
{
    if (!isBusy()) {
        start(folder, std::move(arrived)).write(picture);
    }
}

WebImageFetcher& ImageArrival::start(const QString& folder, Arrived arrived)
{
    m_arrived = std::move(arrived);
    m_fetcher = std::make_unique<WebImageFetcher>(folder);
    connect(m_fetcher.get(), &WebImageFetcher::finished, this, &ImageArrival::end);
    return *m_fetcher;
}

void ImageArrival::showSheet(WebImageFetcher& fetcher)
{
    auto* content = new QWidget;
    auto* progress = new kit::ProgressView;
    progress->updateProgress(base::text("Basic.Downloading.Image"), 0);
    QPushButton* stop = makeStopButton();
    auto* column = new QVBoxLayout(content);
    const int margin = kit::metric::wideGap;
    column->setContentsMargins(0, 0, margin, margin);
    column->setSpacing(0);
    column->addWidget(progress);
    column->addWidget(stop, 0, Qt::AlignRight);

    m_sheet = new kit::Sheet(*m_pane.window());
    m_sheet->setContent(content);
    connect(&fetcher, &WebImageFetcher::progressed, progress,
            [progress](int percent) { progress->updateProgress({}, percent); });
    connect(stop, &QPushButton::clicked, &fetcher, &WebImageFetcher::cancel);
    m_sheet->showSheet();
    stop->setFocus();
}

void ImageArrival::end(const std::optional<ImportItem>& item)
{
    m_fetcher.release()->deleteLater(); // It is the sender of what runs here.
    if (m_sheet) {
        m_sheet->endSheet();
        m_sheet->deleteLater();
        m_sheet.clear();
    }
    const Arrived arrived = std::exchange(m_arrived, nullptr);
    if (item) {
        arrived(*item);
    }
}

} // namespace mosaro::importing
