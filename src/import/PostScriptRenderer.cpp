#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/DocumentSupport.h"
#include "import/ImageOperations.h"
#include "import/PageDrawing.h"
#include "import/PostScriptDocument.h"

#include <algorithm>

namespace mosaro::importing {

namespace {

QByteArray point(QPointF point)
{
    return QByteArray::number(point.x(), 'f', 6) + ' ' + QByteArray::number(point.y(), 'f', 6);
}

/// The page's box has its corner in the corner of the sheet, and a second page ends the program.
QString pageSetup(QPointF corner)
{
    return QString::fromLatin1(
        "<< /Install { " + point(-corner) +
        " translate } /BeginPage { 0 gt { systemdict /quit get exec } if } >> setpagedevice");
}

/// The program comes on standard input, so that the interpreter has no leave to read any file but its own.
/// The page is shown once more at the end, since a picture for other documents need not do it.
QStringList interpreterArguments(QPointF corner, QSizeF dotsPerInch, QSize pixels)
{
    const QString resolution =
        QString::number(dotsPerInch.width(), 'f', 6) + u'x' + QString::number(dotsPerInch.height(), 'f', 6);
    return {QStringLiteral("-q"),
            QStringLiteral("-dSAFER"),
            QStringLiteral("-dBATCH"),
            QStringLiteral("-dNOPAUSE"),
            QStringLiteral("-dNOPROMPT"),
            QStringLiteral("-sstdout=%stderr"),
            QStringLiteral("-sDEVICE=pngalpha"),
            QStringLiteral("-dTextAlphaBits=4"),
            QStringLiteral("-dGraphicsAlphaBits=4"),
            QStringLiteral("-dFIXEDMEDIA"),
            QStringLiteral("-r") + resolution,
            QStringLiteral("-g%1x%2").arg(pixels.width()).arg(pixels.height()),
            QStringLiteral("-sOutputFile=-"),
            QStringLiteral("-c"),
            pageSetup(corner),
            QStringLiteral("-f"),
            QStringLiteral("-_"),
            QStringLiteral("-c"),
            QStringLiteral("showpage")};
}

base::Failure withoutPage()
{
    return {base::text("Failure.PostScript.NoPage")};
}

/// Fonts, tables and procedures for printers are PostScript too; by themselves, some stop with an error.
bool isResource(const PostScriptDocument& document)
{
    return !document.hasBoundingBox && !document.program.contains("showpage");
}

PageDrawer firstPage(const PostScriptDocument& document)
{
    return [&document](const QRectF& part, QSize pixels) -> base::Result<QImage> {
        const QRectF& box = document.boundingBox;
        const QPointF corner(box.x() + part.x(), box.y() + box.height() - part.bottom());
        const QSizeF dotsPerInch(72 * pixels.width() / part.width(), 72 * pixels.height() / part.height());
        const base::Result<QByteArray> png =
            runChild(QStringLiteral("gs"), interpreterArguments(corner, dotsPerInch, pixels),
                     pageChildLimits(), document.program);
        const bool drawsNothing = png ? png.value().isEmpty() : isResource(document);
        if (drawsNothing)
            return withoutPage();
        return png ? drawnPicture(png.value(), pixels) : base::Result<QImage>(png.failure());
    };
}

base::Result<PostScriptDocument> readDocument(const QString& path)
{
    const base::Result<QByteArray> bytes = readWholeFile(path, analysisLimits().maxPostScriptBytes);
    if (!bytes)
        return bytes.failure();
    const std::optional<PostScriptDocument> document = postScriptDocument(bytes.value());
    if (!document)
        return otherContents(bytes.value().left(64), DocumentType::Eps);
    const base::Result<void> size = checkPageSize(document->boundingBox.size());
    if (!size)
        return size.failure();
    return *document;
}

enum class Coverage { None, Some, All };

Coverage coverageOf(const QImage& image)
{
    const QImage pixels = CGImage(image);
    bool covered = false;
    bool clear = false;
    for (int y = 0; y < pixels.height() && !(covered && clear); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        const auto* end = line + pixels.width();
        covered = covered || std::any_of(line, end, [](QRgb pixel) { return qAlpha(pixel) > 0; });
        clear = clear || std::any_of(line, end, [](QRgb pixel) { return qAlpha(pixel) < 255; });
    }
    return clear ? (covered ? Coverage::Some : Coverage::None) : Coverage::All;
}

} // namespace

base::Result<RenderedDocument> renderPostScript(const QString& path)
{
    const base::Result<PostScriptDocument> document = readDocument(path);
    if (!document)
        return document.failure();
    const QSizeF size = document.value().boundingBox.size();
    const base::Result<PagePictures> pictures = drawPage(firstPage(document.value()), size);
    if (!pictures)
        return pictures.failure();
    const Coverage coverage = coverageOf(pictures.value().fullSize);
    if (coverage == Coverage::None && !document.value().hasBoundingBox)
        return withoutPage();
    RenderedDocument result;
    result.preview = pictures.value().preview;
    result.fullSize = pictures.value().fullSize;
    result.metadata.hasAlpha = coverage != Coverage::All;
    result.documentSize = size;
    return result;
}

} // namespace mosaro::importing
