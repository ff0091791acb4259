#include "import/FileHeaders.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("Jpeg2000Header", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const std::optional<BitmapHeader> header = readJpeg2000Header(file);
    fuzz::require(!header || (header->depth >= 0 && header->depth <= 128), "a depth is a number of bits");
});

} // namespace
