#include "import/DesktopThumbnail.h"

#include "import/Analysis.h"
#include "import/ChildProcess.h"
#include "import/DocumentSupport.h"

#include <QHash>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>

namespace mosaro::importing {

namespace {

QString filledIn(const QString& word, const QHash<QChar, QString>& values)
{
    QString result;
    for (qsizetype at = 0; at < word.size(); ++at) {
        const bool isField = word.at(at) == u'%' && at + 1 < word.size();
        result += isField ? values.value(word.at(at + 1)) : QString(word.at(at));
        at += isField ? 1 : 0;
    }
    return result;
}

ChildLimits thumbnailerLimits()
{
    const AnalysisLimits& limits = analysisLimits();
    return {limits.maxThumbnailerSeconds, limits.maxThumbnailerMemory, limits.maxCarriedBytes};
}

/// In front of a command that shall see no network; empty where the system does not let it.
const QStringList& withoutNetwork()
{
    static const QStringList words = [] {
        const QStringList apart = {QStringLiteral("unshare"), QStringLiteral("--map-current-user"),
                                   QStringLiteral("--net"), QStringLiteral("--")};
        const bool works =
            runChild(apart.first(), apart.mid(1) + QStringList(QStringLiteral("true")), thumbnailerLimits())
                .ok();
        return works ? apart : QStringList();
    }();
    return words;
}

} // namespace

base::Result<QByteArray> desktopThumbnail(const QString& command, const QString& path, int side)
{
    const QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("thumbnail.png"));
    const QHash<QChar, QString> values = {{u'i', path},
                                          {u'u', QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())},
                                          {u'o', picture},
                                          {u's', QString::number(side)},
                                          {u'%', QStringLiteral("%")}};
    QStringList words = withoutNetwork();
    for (const QString& word : QProcess::splitCommand(command))
        words.append(filledIn(word, values));
    if (!folder.isValid() || words.size() == withoutNetwork().size())
        return QByteArray();
    const base::Result<QByteArray> ended = runChild(words.first(), words.mid(1), thumbnailerLimits());
    return ended ? readWholeFile(picture, analysisLimits().maxCarriedBytes) : ended;
}

} // namespace mosaro::importing
