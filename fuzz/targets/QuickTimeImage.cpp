#include "import/QuickTimeImage.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("QuickTimeImage", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const std::optional<BitmapHeader> header = readQuickTimeImageHeader(file);
    const QImage image = readQuickTimeImage(file);
    fuzz::require(image.isNull() || (header && image.size() == header->size),
                  "a picture has the size its description says");
});

} // namespace
