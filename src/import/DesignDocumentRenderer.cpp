#include "import/RenderedDocument.h"

#include "base/Text.h"

namespace mosaro::importing {

base::Result<RenderedDocument> renderDesignDocument(const QString& /*path*/, DocumentType type)
{
    return base::Failure{base::text("Failure.Format.NoRenderer", MediaClassification::contentTypeName(type))};
}

} // namespace mosaro::importing
