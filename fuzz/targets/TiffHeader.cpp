#include "import/FileHeaders.h"
#include "import/PageDrawing.h"
#include "import/VipsSupport.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

constexpr qint64 kMostPixels = qint64(1) << 18; ///< Larger ones take time and show nothing new.

const fuzz::Target target("TiffHeader", [](const QByteArray& bytes) {
    ensureImageLibrary(); // Which keeps the TIFF library quiet too.
    const QString path = fuzz::inputFile(bytes);
    const std::optional<BitmapHeader> rare = readRareTiffHeader(path);
    if (rare && rare->isReadAsRgba && qint64(rare->size.width()) * rare->size.height() <= kMostPixels)
        (void)readTiffAsRgba(path, rare->size);
    (void)drawnTiff(bytes, {4, 4});
    const std::optional<TiffHeader> header = readTiffHeader(path);
    if (!header)
        return;
    fuzz::require(header->piecePixels >= 0, "a piece has no fewer than no pixels");
    fuzz::require(!header->colorModel.isEmpty(), "a picture has a colour model");
});

} // namespace
