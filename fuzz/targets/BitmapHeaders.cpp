#include "import/FileHeaders.h"

#include "FuzzInput.h"

#include <cmath>

using namespace mosaro;
using namespace mosaro::importing;

namespace {

void check(const std::optional<BitmapHeader>& header)
{
    if (!header)
        return;
    fuzz::require(!header->size.isEmpty(), "a picture has a size");
    fuzz::require(std::isfinite(header->dpi), "a resolution has an end");
    fuzz::require(header->minimumBytes >= 0, "no picture needs less than nothing");
}

const fuzz::Target target("BitmapHeaders", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    for (const auto read : {readPngHeader, readBmpHeader, readTgaHeader, readPictHeader})
        check(read(file));
    for (const auto named : {DocumentType::Png, DocumentType::Tga, DocumentType::Pict})
        (void)bitmapFormatOf(bytes.left(64), named);
    (void)markedTypeOf(bytes.left(64));
});

} // namespace
