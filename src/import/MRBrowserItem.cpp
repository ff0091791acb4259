#include "import/MRBrowserItem.h"

#include "import/BrowserTables.h"
#include "import/FileCopy.h"
#include "store/LibraryPackage.h"
#include "store/MediaSet.h"

#include <QFileInfo>

namespace mosaro::importing {

MRBrowserItem::MRBrowserItem(std::shared_ptr<store::Media> media, QString masterDirPath)
    : m_media(std::move(media)), m_masterDirPath(std::move(masterDirPath))
{
}

QString MRBrowserItem::imageSubtitle() const
{
    switch (static_cast<store::SortKey>(m_sortKey)) {
    case store::SortKey::FileSize:
        return fileSizeAsString();
    case store::SortKey::Width:
        return widthAsStringWithDocument();
    case store::SortKey::Height:
        return heightAsStringWithDocument();
    case store::SortKey::DateCreated:
        return dateCreatedAsString();
    case store::SortKey::DateModified:
        return dateModifiedAsString();
    case store::SortKey::DateImported:
        return dateImportedAsString();
    case store::SortKey::DateLastOpened:
        return dateLastOpenedAsString();
    case store::SortKey::Title:
    case store::SortKey::Rating:
        break;
    }
    return imageSizeWithDocument();
}

QString MRBrowserItem::mediaID() const
{
    return m_media ? m_media->mediaID() : QString();
}

QString MRBrowserItem::mediaPID() const
{
    return m_media ? m_media->mediaPID() : QString();
}

QString MRBrowserItem::title() const
{
    return m_media ? m_media->mediaTitle() : QString();
}

QString MRBrowserItem::originPath() const
{
    return m_media ? m_media->mediaOriginalPath() : QString();
}

QString MRBrowserItem::inMasters(const QString& stored) const
{
    // Stored paths begin with a slash; without a library they must not point to the root of the disk.
    return m_masterDirPath.isEmpty() ? stored.mid(1) : m_masterDirPath + stored;
}

QString MRBrowserItem::mediaPath() const
{
    return !m_media || isReferencedMedia() ? originPath() : inMasters(m_media->mediaPath());
}

QString MRBrowserItem::thumbPath() const
{
    return m_media ? inMasters(m_media->mediaThumbPath()) : QString();
}

QString MRBrowserItem::itemFolderPath() const
{
    const QString thumb = thumbPath();
    return thumb.isEmpty() ? QString() : QFileInfo(QFileInfo(thumb).path()).path();
}

QString MRBrowserItem::fullSizePreviewPath() const
{
    const QString suffix = m_media ? sideFileSuffix(documentType()) : QString();
    if (suffix.isEmpty()) {
        return {};
    }
    // The name of a reference may be longer than its side file's can be.
    const QString stem = QFileInfo(storedFileName(mediaFilename())).completeBaseName();
    return itemFolderPath() + u'/' + QLatin1String(store::kOriginalsDir) + u'/' + stem + suffix;
}

QString MRBrowserItem::mediaReadablePath() const
{
    if (!m_media || !isDrawnBySideFile(documentType())) {
        return mediaPath();
    }
    const QString sideFile = fullSizePreviewPath();
    return QFileInfo::exists(sideFile) ? sideFile : thumbPath();
}

QUrl MRBrowserItem::mediaURL() const
{
    const QString path = mediaReadablePath();
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

QUrl MRBrowserItem::mediaShareURL() const
{
    const QString path = mediaPath();
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

QString MRBrowserItem::mediaFilename() const
{
    return QFileInfo(mediaPath()).fileName();
}

QString MRBrowserItem::mediaExtension() const
{
    return QFileInfo(mediaPath()).suffix();
}

QString MRBrowserItem::mediaFilterSettingPath() const
{
    return m_media ? itemFolderPath() + QStringLiteral("/filters.plist") : QString();
}

QString MRBrowserItem::mediaColorTablePath() const
{
    return m_media ? itemFolderPath() + QStringLiteral("/colorTables.plist") : QString();
}

bool MRBrowserItem::mediaFileIsModified() const
{
    const QFileInfo file(mediaPath());
    if (!m_media || !file.exists()) {
        return false;
    }
    // Both must differ: a touched file of the same size counts as unchanged.
    return file.lastModified().toMSecsSinceEpoch() != dateModified().toMSecsSinceEpoch() &&
           file.size() != fileSize();
}

bool MRBrowserItem::isReadableMediaAtPath() const
{
    const QString path = mediaPath();
    return !path.isEmpty() && QFileInfo(path).isReadable();
}

bool MRBrowserItem::isReferencedMedia() const
{
    return m_media && m_media->mediaPath().isEmpty();
}

bool MRBrowserItem::hasURLInfo() const
{
    return m_media && !m_media->mediaWeburl().isEmpty();
}

bool MRBrowserItem::isThirdPartyFormat() const
{
    return m_media && !designApplication(documentType()).isEmpty();
}

bool MRBrowserItem::isPDF() const
{
    return m_media && documentType() == static_cast<int>(DocumentType::Pdf);
}

bool MRBrowserItem::isMovieFile() const
{
    constexpr int kFirstMovie = 23;
    constexpr int kLastMovie = 25;
    return documentType() >= kFirstMovie && documentType() <= kLastMovie;
}

int MRBrowserItem::documentType() const
{
    return m_media ? static_cast<int>(m_media->mediaDocumentType()) : 0;
}

int MRBrowserItem::mediaKindType() const
{
    return static_cast<int>(m_media ? m_media->mediaKind() : qint64(MediaKind::Other));
}

QString MRBrowserItem::documentTypeAsString() const
{
    return m_media ? MediaClassification::mediaDocumentType(documentType()) : QString();
}

QString MRBrowserItem::mediaKindTypeAsString() const
{
    return m_media ? MediaClassification::mediaKindType(mediaKindType()) : QString();
}

QString MRBrowserItem::docSymbolBadge() const
{
    return m_media ? documentBadge(documentType()) : QString();
}

QString MRBrowserItem::docSymbolRetinaBadge() const
{
    const QString badge = docSymbolBadge();
    return badge.isEmpty() ? badge : badge + QStringLiteral("_R");
}

QString MRBrowserItem::labelSymbolBadge() const
{
    return labelBadge(mediaLabel());
}

QString MRBrowserItem::labelSymbolRetinaBadge() const
{
    const QString badge = labelSymbolBadge();
    return badge.isEmpty() ? badge : badge + QStringLiteral("_R");
}

int MRBrowserItem::mediaLabel() const
{
    return m_media ? static_cast<int>(m_media->mediaLabel()) : 0;
}

} // namespace mosaro::importing
