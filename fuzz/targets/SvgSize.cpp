#include "import/SvgSize.h"

#include "FuzzInput.h"

#include <cmath>

using namespace mosaro;

namespace {

const fuzz::Target target("SvgSize", [](const QByteArray& bytes) {
    const QSizeF size = importing::svgSizeOf(bytes);
    fuzz::require(size.width() > 0 && size.height() > 0, "a document has a size");
    fuzz::require(std::isfinite(size.width()) && std::isfinite(size.height()), "a size has an end");
});

} // namespace
