#include "import/PdfInfo.h"
#include "import/PageDrawing.h"

#include "FuzzInput.h"

using namespace mosaro;

namespace {

const fuzz::Target target("PdfInfo", [](const QByteArray& bytes) {
    const importing::PdfInfo info = importing::parsedPdfInfo(bytes);
    for (const QSizeF size : {info.mediaBox, info.pageSize}) {
        const bool isDrawn = importing::checkPageSize(size).ok();
        fuzz::require(!isDrawn || (size.width() > 0 && size.width() < 1e9 && size.height() < 1e9),
                      "a page that is drawn has a size within reason");
    }
});

} // namespace
