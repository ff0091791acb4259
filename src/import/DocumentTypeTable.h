#pragma once

#include "import/MediaClassification.h"

#include <QLatin1String>
#include <QStringList>
#include <vector>

namespace mosaro::importing {

/// One document format: what it is called and how its files are told from their names.
struct DocumentTypeRow {
    DocumentType type;
    QLatin1String name;     ///< Content type name, never translated.
    QLatin1String ruleKey;  ///< Key of a smart rule; empty for none.
    QStringList extensions; ///< Lower case; these answer alike on every machine.
    QStringList mimeNames;  ///< Any of these in the desktop's database means this format.
    bool inherits = true;   ///< A type that inherits one of the MIME names counts too.
};

/// All formats in the order in which they are tried.
[[nodiscard]] const std::vector<DocumentTypeRow>& documentTypeTable();
[[nodiscard]] const DocumentTypeRow& rowOfDocumentType(DocumentType type);

/// One MIME name that some desktops give to the documents of both Affinity applications.
inline constexpr QLatin1String kAffinityFamilyMime{"application/x-affinity"};

} // namespace mosaro::importing
