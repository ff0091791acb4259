#include "import/PhotoshopHeader.h"

#include "FuzzInput.h"

#include <cmath>

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("PhotoshopHeader", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const std::optional<ImageMetadata> metadata = readPhotoshopHeader(file);
    if (!metadata)
        return;
    fuzz::require(metadata->width > 0 && metadata->height > 0, "a picture has a size");
    fuzz::require(std::isfinite(metadata->dpi) && metadata->dpi > 0, "a resolution is a number");
});

} // namespace
