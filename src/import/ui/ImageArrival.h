#pragma once

#include "import/ImportItem.h"
#include "import/LoosePicture.h"
#include "import/Pasteboard.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

namespace mosaro::kit {
class ProgressView;
class Sheet;
} // namespace mosaro::kit

namespace mosaro::importing {

class WebImageFetcher;

/// Pictures that a pane of the window is given without a file, until they are one. A download shows a sheet
/// on the pane's window, by which it can be stopped; what fails ends without a word. One at a time: what is
/// asked for meanwhile does nothing. When the pane goes, all of it ends.
class ImageArrival : public QObject {
    Q_OBJECT

public:
    using Arrived = std::function<void(const ImportItem&)>;

    explicit ImageArrival(QWidget& pane);
    ~ImageArrival() override;

    [[nodiscard]] bool isBusy() const { return m_fetcher != nullptr; }
    void fetch(const WebImageRequest& request, const QString& folder, Arrived arrived);
    void write(const LoosePicture& picture, const QString& folder, Arrived arrived);

private:
    [[nodiscard]] WebImageFetcher& start(const QString& folder, Arrived arrived);
    void showSheet(WebImageFetcher& fetcher);
    void end(const std::optional<ImportItem>& item);

    QWidget& m_pane;
    std::unique_ptr<WebImageFetcher> m_fetcher;
    QPointer<kit::Sheet> m_sheet; ///< Child of the window.
    Arrived m_arrived;
};

} // namespace mosaro::importing
