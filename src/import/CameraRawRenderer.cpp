#include "import/RenderedDocument.h"

#include "base/Text.h"

namespace mosaro::importing {

base::Result<RenderedDocument> renderCameraRaw(const QString& /*path*/)
{
    return base::Failure{
        base::text("Failure.Format.NoRenderer", MediaClassification::contentTypeName(DocumentType::Raw))};
}

} // namespace mosaro::importing
