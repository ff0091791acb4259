#include "import/RenderedDocument.h"

#include "base/Text.h"

namespace mosaro::importing {

base::Result<RenderedDocument> renderPostScript(const QString& /*path*/)
{
    return base::Failure{
        base::text("Failure.Format.NoRenderer", MediaClassification::contentTypeName(DocumentType::Eps))};
}

} // namespace mosaro::importing
