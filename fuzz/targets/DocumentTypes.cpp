#include "import/DocumentTypeTable.h"
#include "import/RenderableDocuments.h"
#include "platform/linux/MimeTypes.h"

#include "FuzzInput.h"
#include "support/FakePlatform.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

// A file is called what a stranger called it.
const fuzz::Target target("DocumentTypes", [](const QByteArray& bytes) {
    static const platform::MimeTypes types;
    static const test::FakeThumbnailers desktop;
    static const RenderableDocuments documents(desktop);
    static const MediaClassification classification(types, documents);
    const QString name = QString::fromUtf8(bytes);
    const std::optional<DocumentType> type = classification.documentTypeForExtension(name);
    fuzz::require(!type || (*type >= DocumentType::Pdf && *type <= DocumentType::Acorn),
                  "a type stands in the table");
    fuzz::require(!type || classification.documentTypeForExtension(name.toUpper()).has_value(),
                  "the case of an extension does not matter");
    const int ruled = MediaClassification::documentType(name);
    fuzz::require(ruled == -1 || rowOfDocumentType(DocumentType(ruled)).ruleKey == name,
                  "a smart rule's key names its row");
    const int kind = classification.mediaKindOfPath(name, {static_cast<int>(bytes.size()), 480});
    fuzz::require(kind >= int(MediaKind::Screen) && kind <= int(MediaKind::Other), "a path has a kind");
});

} // namespace
