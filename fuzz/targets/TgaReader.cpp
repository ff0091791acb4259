#include "import/TgaReader.h"

#include "import/FileHeaders.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("TgaReader", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const std::optional<BitmapHeader> header = readTgaHeader(file);
    if (!header || fuzz::isLarge(header->size))
        return;
    const QImage image = readTga(file);
    fuzz::require(image.isNull() || image.size() == header->size, "a picture has the size its header says");
});

} // namespace
