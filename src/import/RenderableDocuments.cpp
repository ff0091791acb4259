#include "import/RenderableDocuments.h"

#include "import/DocumentTypeTable.h"

#include <algorithm>

namespace mosaro::importing {

bool RenderableDocuments::hasThumbnailer(const QStringList& mimeTypes) const
{
    const auto& table = documentTypeTable();
    const bool carriesPreview = std::any_of(table.begin(), table.end(), [&](const DocumentTypeRow& row) {
        return row.type >= DocumentType::AffinityDesigner && mimeTypes.contains(row.mimeNames.first());
    });
    return carriesPreview || m_desktop.hasThumbnailer(mimeTypes);
}

} // namespace mosaro::importing
