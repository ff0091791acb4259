#include "import/PhotoshopPixels.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("PhotoshopPixels", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const std::optional<PhotoshopPixels> layout = readPhotoshopLayout(file);
    if (!layout || fuzz::isLarge(layout->size) || !hasReadablePixels(file, *layout))
        return;
    const base::Result<QImage> picture = readPhotoshopPixels(file, *layout, {});
    fuzz::require(!picture || picture.value().size() == layout->size, "a picture has the size that it says");
});

} // namespace
