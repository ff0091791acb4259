#include "import/BmpReader.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("BmpReader", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const std::optional<BitmapHeader> header = readBmpHeader(file);
    if (!header || !header->isRare || fuzz::isLarge(header->size))
        return;
    const base::Result<QImage> picture = readRareBmp(file, *header);
    fuzz::require(!picture || picture.value().size() == header->size, "a picture has the size that it says");
});

} // namespace
