#pragma once

#include "base/ColorText.h"
#include "base/Result.h"
#include "import/MediaClassification.h"

#include <QByteArray>
#include <QDateTime>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace mosaro::importing {

// Analysis turns one file into values. Request and result are plain values that could cross a process border:
// no pointers, no QObject, no records.

struct AnalysisRequest {
    QString path;                          ///< Absolute path of the file.
    DocumentType type = DocumentType::Pdf; ///< As classified from the name.
    MediaKind kind = MediaKind::Unset;     ///< As the import item said it.
    QString thumbnailer = {}; ///< Command line that draws documents of design programs; empty for none.
};

/// A colour with its share of the votes, 0 to 1.
struct DominantColor {
    base::ColorValue color;
    float percent = 0;
};

/// Properties of picture 0 of a bitmap file; what the file does not give keeps the value here.
struct ImageMetadata {
    int width = 0;
    int height = 0;
    double dpi = 72;
    int depth = 0; ///< Bits per component.
    bool hasAlpha = false;
    QString colorModel;  ///< "RGB", "Gray", "CMYK", "Lab" …
    QString profileName; ///< Description of the embedded ICC profile.
    QString software;    ///< Empty: not given.
};

/// What a PDF document says of itself; what it does not say keeps the value here.
struct PdfMetadata {
    int pageCount = 0;
    QString version; ///< As "1.4".
    QString title;
    QString author;
    QString subject;
    QString creator;
    QString producer;
    QDateTime created; ///< Invalid: not said.
    QDateTime modified;
};

struct AnalysisResult {
    base::Result<void> outcome; ///< Why the file cannot become an item, else success.
    DocumentType type = DocumentType::Pdf;
    MediaKind kind = MediaKind::Unset; ///< Final kind, by all the rules.
    QByteArray preview;                ///< Bytes of "preview.png"; PNG, JPEG or GIF by document type.
    QByteArray sideFile;               ///< Bytes of the side file; empty for types without one.
    QString sideFileSuffix;            ///< As "_eps.png".
    ImageMetadata metadata;
    QSizeF documentSize;            ///< For documents that are not measured in pixels; else empty.
    std::optional<PdfMetadata> pdf; ///< Of documents that are PDF inside.
    bool hasFrames = false;
    std::vector<DominantColor> colors; ///< Falling share; the first four become colour types 0 to 3.
};

/// The limits that hold for every stranger's file, in one place.
struct AnalysisLimits {
    qint64 maxPixels = 500'000'000;                ///< Of the whole picture, before any shrinking.
    qint64 maxPixelsWithoutStreaming = 80'000'000; ///< For decoders that need the whole picture in memory.
    qint64 memoryForDecoding = qint64(256) << 20;  ///< Shared by all that are decoded at once.
    qint64 maxFileBytes = qint64(8) << 30;
    int maxSide = 100'000;  ///< Pixels of one edge.
    int maxSeconds = 60;    ///< For the decoding of one picture.
    int maxIconSide = 2048; ///< Pixels of one edge of a picture in an icon file.
    qint64 maxIconBytes = qint64(64) << 20;
    qint64 maxRawMemory = qint64(2) << 30;      ///< Address space of the child.
    qint64 maxRawOutput = qint64(256) << 20;    ///< What it hands over.
    qint64 maxMagickMemory = qint64(2) << 30;   ///< Address space of the child.
    qint64 maxMagickOutput = qint64(512) << 20; ///< What it hands over.
    qint64 maxSvgBytes = qint64(64) << 20;
    qint64 svgDecoderBytes = qint64(2) << 30;  ///< Of address space; half of it may be memory.
    qint64 maxDrawnPixels = 25'000'000;        ///< Larger SVG documents are drawn smaller.
    int maxDrawnSide = 32'000;                 ///< Pixels of one edge, likewise.
    qint64 maxSearchedBytes = qint64(2) << 30; ///< Of a design document, for the picture that it carries.
    qint64 maxCarriedBytes = qint64(64) << 20; ///< Of that picture, as it is stored.
    qint64 maxCarriedPixels = 20'000'000;
    int maxDocumentParts = 20'000; ///< Entries of a packed design document.
    int maxThumbnailerSeconds = 30;
    qint64 maxThumbnailerMemory = qint64(4) << 30; ///< Of its address space, of which it uses a part.

    // Documents of pages, which another program draws.
    qint64 maxPagePixels = 16'000'000; ///< Of a side file; a larger page is drawn smaller.
    int maxPageEdge = 30'000;
    qint64 maxPostScriptBytes = qint64(128) << 20; ///< Of a document that is held in memory.
    int maxPageSeconds = 30;                       ///< For each call of the program.
    qint64 maxPageMemory = qint64(1) << 30;        ///< Of its address space, of which it uses a part.
    qint64 maxPageOutput = qint64(128) << 20;
};
[[nodiscard]] const AnalysisLimits& analysisLimits();

/// Decodes the file once and answers preview, side file, metadata, kind and colours. Pure but for reading the
/// file and running the programs that read it; may run on any thread, several at once.
[[nodiscard]] AnalysisResult analyse(const AnalysisRequest& request);

/// Before the first analyse() of the process: sets the image library up for many small jobs at once.
/// Idempotent.
void setUpImageLibrary(const char* programName);

} // namespace mosaro::importing
