#include "platform/linux/LinkResolver.h"

#include "FuzzInput.h"

#include <QFileInfo>

using namespace mosaro;

namespace {

const fuzz::Target target("DesktopLink", [](const QByteArray& bytes) {
    const QString path = fuzz::inputFile(bytes, QStringLiteral("input.desktop"));
    const QString leadsTo = platform::LinkResolver().resolve(path);
    fuzz::require(leadsTo.isEmpty() || (QDir::isAbsolutePath(leadsTo) && QFileInfo::exists(leadsTo)),
                  "a link leads to a file or nowhere");
});

} // namespace
