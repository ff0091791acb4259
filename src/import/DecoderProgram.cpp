#include "import/DecoderProgram.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace mosaro::importing {

QString decoderProgram(const QString& name)
{
    const QString folder = QCoreApplication::applicationDirPath();
    for (const QString& place : {folder, folder + QLatin1String("/" MOSARO_DECODERS_FROM_PROGRAMS)}) {
        const QString path = place + u'/' + name;
        if (QFileInfo(path).isExecutable())
            return path;
    }
    return QLatin1String(MOSARO_DECODERS_BUILT "/") + name;
}

} // namespace mosaro::importing
