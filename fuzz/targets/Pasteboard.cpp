#include "import/Pasteboard.h"

#include "FuzzInput.h"

#include <QMimeData>

using namespace mosaro;
using namespace mosaro::importing;

namespace {

// What a program that is dragged from says of its addresses.
const fuzz::Target target("Pasteboard", [](const QByteArray& bytes) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), bytes);
    for (const QString& path : filesOf(data))
        fuzz::require(!path.isEmpty(), "a file has a path");
    const QUrl address = addressOf(data);
    fuzz::require(address.isEmpty() || (!address.isLocalFile() && !address.scheme().isEmpty()),
                  "an address is none of a file");
    (void)webImageOf(data, {QStringLiteral("png")});
});

} // namespace
