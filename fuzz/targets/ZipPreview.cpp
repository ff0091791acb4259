#include "import/CarriedPreview.h"

#include "FuzzInput.h"

using namespace mosaro;

namespace {

const fuzz::Target target("ZipPreview", [](const QByteArray& bytes) {
    const QByteArray picture = importing::previewInZip(fuzz::inputFile(bytes));
    fuzz::require(picture.isEmpty() || picture.startsWith("\x89PNG") || picture.startsWith("\xff\xd8\xff"),
                  "an entry that is taken is a PNG or JPEG stream");
});

} // namespace
