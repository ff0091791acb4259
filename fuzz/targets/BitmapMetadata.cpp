#include "import/BitmapDecoder.h"

#include "FuzzInput.h"

#include <cmath>

using namespace mosaro;
using namespace mosaro::importing;

namespace {

// As whatever the first bytes say, so that no input is refused for its name. The other formats are read by
// other targets or by programs of their own.
const fuzz::Target target("BitmapMetadata", [](const QByteArray& bytes) {
    const QString path = fuzz::inputFile(bytes);
    if (readRareTiffHeader(path))
        return;
    for (const auto named : {DocumentType::Jpeg, DocumentType::Png, DocumentType::Gif, DocumentType::Tiff}) {
        const base::Result<OpenedBitmap> bitmap = openBitmap(path, named);
        if (!bitmap)
            continue;
        const ImageMetadata& metadata = bitmap.value().metadata;
        fuzz::require(metadata.width > 0 && metadata.height > 0, "a picture has a size");
        fuzz::require(std::isfinite(metadata.dpi) && metadata.dpi > 0, "a resolution is a number");
        fuzz::require(bitmap.value().pages > 0, "a picture has a page");
    }
});

} // namespace
