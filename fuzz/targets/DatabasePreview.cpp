#include "import/CarriedPreview.h"

#include "FuzzInput.h"

using namespace mosaro;

namespace {

const fuzz::Target target("DatabasePreview", [](const QByteArray& bytes) {
    const QByteArray picture = importing::previewInDatabase(fuzz::inputFile(bytes));
    fuzz::require(picture.isEmpty() || picture.startsWith("\x89PNG") || picture.startsWith("\xff\xd8\xff"),
                  "a blob that is taken is a PNG or JPEG stream");
});

} // namespace
