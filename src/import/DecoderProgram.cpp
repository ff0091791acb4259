#include "import/DecoderProgram.h"

#include "import/Analysis.h"

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

ChildLimits decoderLimits(qint64 memoryBytes, qint64 outputBytes)
{
#ifdef __SANITIZE_ADDRESS__
    memoryBytes = 0;
#endif
    return {analysisLimits().maxSeconds, memoryBytes, outputBytes};
}

} // namespace mosaro::importing
