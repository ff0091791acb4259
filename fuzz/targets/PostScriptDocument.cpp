#include "import/PostScriptDocument.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("PostScriptDocument", [](const QByteArray& bytes) {
    const std::optional<PostScriptDocument> document = postScriptDocument(bytes);
    if (!document)
        return;
    fuzz::require(bytes.contains(document->program), "the program is a part of its file");
    fuzz::require(document->boundingBox.isValid() && document->boundingBox.width() <= 1e7 &&
                      document->boundingBox.height() <= 1e7,
                  "a page has a size within reason");
});

} // namespace
