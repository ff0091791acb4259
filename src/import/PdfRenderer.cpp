#include "import/RenderedDocument.h"

#include "base/Text.h"

namespace mosaro::importing {

base::Result<RenderedDocument> renderPdf(const QString& /*path*/)
{
    return base::Failure{
        base::text("Failure.Format.NoRenderer", MediaClassification::contentTypeName(DocumentType::Pdf))};
}

base::Result<RenderedDocument> renderIllustrator(const QString& /*path*/)
{
    return base::Failure{base::text("Failure.Format.NoRenderer",
                                    MediaClassification::contentTypeName(DocumentType::Illustrator))};
}

} // namespace mosaro::importing
