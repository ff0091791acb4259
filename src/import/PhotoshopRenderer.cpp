#include "import/RenderedDocument.h"

#include "base/Text.h"

namespace mosaro::importing {

base::Result<RenderedDocument> renderPhotoshop(const QString& /*path*/)
{
    return base::Failure{base::text("Failure.Format.NoRenderer",
                                    MediaClassification::contentTypeName(DocumentType::Photoshop))};
}

} // namespace mosaro::importing
