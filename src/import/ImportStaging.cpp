#include "import/ImportStaging.h"

#include "base/Text.h"
#include "import/FileCopy.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>
#include <cerrno>
#include <cstdio>
#include <exception>

namespace mosaro::importing {

using base::Failure;
using base::Result;
using base::text;

StagedFolder& StagedFolder::operator=(StagedFolder&& other) noexcept
{
    std::swap(m_path, other.m_path);
    return *this;
}

StagedFolder::~StagedFolder()
{
    if (!m_path.isEmpty()) {
        QDir(m_path).removeRecursively();
    }
}

Result<void> StagedFolder::moveTo(const QString& destination)
{
    errno = 0;
    if (!QDir().mkpath(QFileInfo(destination).path()) ||
        std::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(destination).constData()) != 0) {
        return Failure{text("Failure.Import.Place", systemReason(errno))};
    }
    m_path.clear();
    return {};
}

namespace {

void readAttributes(StagedItem& staged, const QFileInfo& info)
{
    staged.fileSize = info.size();
    staged.modified = info.lastModified();
    const QDateTime birth = info.birthTime();
    staged.created = birth.isValid() ? birth : staged.modified;
}

AnalysisResult analyseFile(const StagedItem& staged, const StagingSettings& settings)
{
    const auto type =
        static_cast<DocumentType>(settings.classification.mediaContentTypeAsInteger(staged.sourcePath));
    const AnalysisRequest request{staged.sourcePath, type, staged.item.kind,
                                  settings.classification.thumbnailerCommand(type)};
    try {
        return settings.analyse(request);
    } catch (const std::exception& problem) {
        // One stranger's file must not end the run, whatever a decoder throws at it.
        AnalysisResult result;
        result.outcome = Failure{text("Failure.Import.Analysis", QString::fromLocal8Bit(problem.what()))};
        return result;
    }
}

Result<void> makeFolders(const QString& folder)
{
    for (const char* name : {store::kOriginalsDir, store::kPreviewDir}) {
        errno = 0;
        if (!QDir().mkpath(folder + u'/' + QLatin1String(name))) {
            return Failure{text("Failure.Import.Place", systemReason(errno))};
        }
    }
    return {};
}

Result<void> fillOriginals(StagedItem& staged, bool copies)
{
    const QString originals = staged.folder.path() + u'/' + QLatin1String(store::kOriginalsDir) + u'/';
    const QString name = storedFileName(QFileInfo(staged.sourcePath).fileName());
    if (copies) {
        if (const auto copied = copyFile(staged.sourcePath, originals + name); !copied) {
            return copied;
        }
        staged.storedName = name;
    }
    if (staged.analysis.sideFile.isEmpty()) {
        return {};
    }
    const QString stem = QFileInfo(name).completeBaseName();
    return writeFile(originals + stem + staged.analysis.sideFileSuffix, staged.analysis.sideFile);
}

Result<void> fillFolder(StagedItem& staged, const StagingSettings& settings)
{
    if (const auto made = makeFolders(staged.folder.path()); !made) {
        return made;
    }
    if (const auto filled = fillOriginals(staged, settings.copyMode || staged.item.isForcedCopy()); !filled) {
        return filled;
    }
    return writeFile(staged.folder.path() + u'/' + QLatin1String(store::kPreviewDir) + u'/' +
                         QLatin1String(store::kPreviewFile),
                     staged.analysis.preview);
}

Result<void> stageExisting(StagedItem& staged, const StagingSettings& settings)
{
    if (staged.item.hasLostName()) {
        return Failure{text("Failure.Import.Name")};
    }
    const QFileInfo info(staged.sourcePath);
    staged.index = settings.fileIndex.read(staged.sourcePath);
    readAttributes(staged, info);
    if (!info.isFile()) {
        return Failure{info.isDir() ? text("Failure.Import.FolderInFolder")
                                    : text("Failure.Import.NotAFile")};
    }
    staged.analysis = analyseFile(staged, settings);
    if (!staged.analysis.outcome) {
        return staged.analysis.outcome;
    }
    if (staged.analysis.preview.isEmpty()) {
        return Failure{text("Failure.Import.NoPreview")};
    }
    staged.mediaID = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    staged.folder = StagedFolder(settings.stagingDirPath + u'/' + staged.mediaID + u'.' +
                                 QLatin1String(store::kItemSuffix));
    const auto filled = fillFolder(staged, settings);
    staged.analysis.sideFile = QByteArray();
    if (!filled) {
        staged.folder = StagedFolder();
    }
    return filled;
}

} // namespace

std::shared_ptr<StagedItem> stageItem(const ImportItem& item, const StagingSettings& settings)
{
    auto staged = std::make_shared<StagedItem>();
    staged->item = item;
    staged->sourcePath = item.path.isEmpty() ? QString() : QFileInfo(item.path).absoluteFilePath();
    const bool lacksKind = item.isRecord && item.kind == MediaKind::Unset;
    const bool exists = QFileInfo::exists(staged->sourcePath) || item.hasLostName();
    staged->isGone = lacksKind || item.path.isEmpty() || !exists;
    if (!staged->isGone) {
        staged->outcome = stageExisting(*staged, settings);
    }
    return staged;
}

void prepareStaging(const QString& stagingDirPath)
{
    QDir(stagingDirPath).removeRecursively();
    QDir().mkpath(stagingDirPath);
}

} // namespace mosaro::importing
