#include "import/ui/ImageArrival.h"

#include "base/Text.h"
#include "import/WebImageFetcher.h"
#include "kit/ProgressView.h"
#include "kit/Sheet.h"

#include <utility>

namespace mosaro::importing {

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
    auto* progress = new kit::ProgressView;
    progress->updateProgress(base::text("Basic.Downloading.Image"), 0);
    connect(&fetcher, &WebImageFetcher::progressed, progress,
            [progress](int percent) { progress->updateProgress({}, percent); });
    m_sheet = new kit::Sheet(*m_pane.window());
    m_sheet->setContent(progress);
    m_sheet->showSheet();
    progress->offerStop([&fetcher] { fetcher.cancel(); }, base::text("Tooltip.Stop.Download"));
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
