#include "import/WebImage.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

// An address, and in the next line what came from it.
const fuzz::Target target("WebImage", [](const QByteArray& bytes) {
    const fuzz::TwoParts input(bytes);
    const QUrl url(QString::fromUtf8(input.first));
    const QByteArray data = isDataAddress(url) ? dataOfAddress(url) : input.rest;
    const std::optional<LoosePicture> picture =
        downloadedPicture(url, data, QDateTime::fromSecsSinceEpoch(0, Qt::UTC));
    if (!picture)
        return;
    for (const QString& part : {picture->name, picture->suffix}) {
        fuzz::require(!part.contains(QLatin1Char('/')), "a file's name leads into no other folder");
        fuzz::require(!part.contains(QChar::Null), "a file's name ends where it ends");
    }
    fuzz::require(picture->name.toUtf8().size() <= 200, "a file system takes the name");
});

} // namespace
