#include "import/ImageMetadata.h"

#include "FuzzInput.h"

using namespace mosaro;

namespace {

const fuzz::Target target("ExifText", [](const QByteArray& bytes) {
    const QString field = QString::fromUtf8(bytes);
    fuzz::require(field.contains(importing::exifText(field)), "the text is a part of its field");
});

} // namespace
