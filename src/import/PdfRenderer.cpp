#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/DocumentSupport.h"
#include "import/ImageOperations.h"
#include "import/PageDrawing.h"
#include "import/PdfInfo.h"
#include "import/PostScriptDocument.h"

#include <QFile>
#include <algorithm>

namespace mosaro::importing {

namespace {

enum class Paper { White, None };

base::Failure encryptedDocument()
{
    return {base::text("Failure.Document.Encrypted")};
}

/// Of a document that could not be opened: whether that may be for want of a password, or it is another one.
base::Failure whyUnreadable(QFile& file, const base::Failure& otherwise)
{
    // Whatever opens the document's tables stands near one of its ends.
    constexpr qint64 kEnd = qint64(64) * 1024;
    QByteArray ends = file.read(kEnd);
    const std::optional<DocumentType> type = markedTypeOf(ends);
    if (type && *type != DocumentType::Pdf)
        return otherContents(ends, DocumentType::Pdf);
    file.seek(std::max<qint64>(0, file.size() - kEnd));
    ends += file.read(kEnd);
    return ends.contains("/Encrypt") ? encryptedDocument() : otherwise;
}

base::Result<PdfInfo> readInfo(const QString& path)
{
    QFile file(path);
    const base::Result<void> opened = openDocument(file);
    if (!opened)
        return opened.failure();
    const base::Result<QByteArray> output = runChild(QStringLiteral("pdfinfo"),
                                                     {QStringLiteral("-box"), QStringLiteral("-isodates"),
                                                      QStringLiteral("-enc"), QStringLiteral("UTF-8"), path},
                                                     pageChildLimits());
    if (!output)
        return whyUnreadable(file, output.failure());
    const PdfInfo info = parsedPdfInfo(output.value());
    for (const QSizeF size : {info.pageSize, info.mediaBox}) {
        const base::Result<void> checked = checkPageSize(size);
        if (!checked)
            return checked.failure();
    }
    return info;
}

PageDrawer firstPage(const QString& path, QSizeF pageSize, Paper paper)
{
    return [=](const QRectF& part, QSize pixels) -> base::Result<QImage> {
        const double across = pixels.width() / part.width();
        const double down = pixels.height() / part.height();
        const QPoint corner(qRound(part.x() * across), qRound(part.y() * down));
        // Whatever is rounded how, the part lies on the page: the program would cut it off.
        const int width = std::max(qRound(pageSize.width() * across), corner.x() + pixels.width());
        const int height = std::max(qRound(pageSize.height() * down), corner.y() + pixels.height());
        // Compressing it would take about half of the program's time.
        QStringList arguments = {QStringLiteral("-tiff"), QStringLiteral("-tiffcompression"),
                                 QStringLiteral("none"), QStringLiteral("-singlefile"),
                                 QStringLiteral("-cropbox")};
        const std::pair<QString, int> numbers[] = {
            {QStringLiteral("-f"), 1},
            {QStringLiteral("-l"), 1},
            {QStringLiteral("-scale-to-x"), width},
            {QStringLiteral("-scale-to-y"), height},
            {QStringLiteral("-x"), corner.x()},
            {QStringLiteral("-y"), corner.y()},
            {QStringLiteral("-W"), pixels.width()},
            {QStringLiteral("-H"), pixels.height()},
        };
        for (const auto& [option, number] : numbers)
            arguments << option << QString::number(number);
        if (paper == Paper::None)
            arguments << QStringLiteral("-transp");
        arguments << path << QStringLiteral("-");
        const base::Result<QByteArray> tiff =
            runChild(QStringLiteral("pdftocairo"), arguments, pageChildLimits());
        if (!tiff)
            return tiff.failure();
        base::Result<QImage> drawn = drawnTiff(tiff.value(), pixels);
        if (drawn && paper == Paper::White)
            drawn.value().reinterpretAsFormat(QImage::Format_RGB32);
        return drawn;
    };
}

/// The page as large as it fits into the preview box. One that is short in one direction then fills the box
/// instead.
base::Result<QImage> drawPreview(const PageDrawer& draw, QSizeF page)
{
    const QSizeF fitted = page.scaled(kPreviewBox, Qt::KeepAspectRatio);
    const QSize size = fitted.toSize();
    if (size.width() > kFillLimit && size.height() > kFillLimit)
        return draw(QRectF({0, 0}, page), size);
    const QSizeF part = QSizeF(kPreviewBox).scaled(page, Qt::KeepAspectRatio);
    const QPointF corner((page.width() - part.width()) / 2, (page.height() - part.height()) / 2);
    return draw(QRectF(corner, part), kPreviewBox);
}

base::Result<RenderedDocument> renderPdfBasedIllustrator(const QString& path)
{
    const base::Result<PdfInfo> info = readInfo(path);
    if (!info)
        return info.failure();
    const QSizeF size = info.value().pageSize;
    const base::Result<PagePictures> pictures = drawPage(firstPage(path, size, Paper::None), size);
    if (!pictures)
        return pictures.failure();
    RenderedDocument document;
    document.preview = pictures.value().preview;
    document.fullSize = pictures.value().fullSize;
    document.documentSize = info.value().mediaBox;
    document.pdf = info.value().metadata;
    return document;
}

} // namespace

base::Result<RenderedDocument> renderPdf(const QString& path)
{
    const base::Result<PdfInfo> info = readInfo(path);
    if (!info)
        return info.failure();
    if (info.value().isEncrypted)
        return encryptedDocument();
    const QSizeF size = info.value().pageSize;
    const base::Result<QImage> preview = drawPreview(firstPage(path, size, Paper::White), size);
    if (!preview)
        return preview.failure();
    RenderedDocument document;
    document.preview = preview.value();
    document.documentSize = info.value().mediaBox;
    document.pdf = info.value().metadata;
    return document;
}

base::Result<RenderedDocument> renderIllustrator(const QString& path)
{
    if (!holdsPostScript(path))
        return renderPdfBasedIllustrator(path);
    base::Result<RenderedDocument> document = renderPostScript(path);
    // Such a file tells its size, its transparency and its texts only as PDF.
    if (document) {
        document.value().documentSize = {};
        document.value().metadata.hasAlpha = false;
    }
    return document;
}

} // namespace mosaro::importing
