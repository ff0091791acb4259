#include "import/ItemCommitter.h"

#include "base/Text.h"
#include "import/ItemLinks.h"
#include "import/LabelColors.h"
#include "store/Verification.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::importing {

using base::Failure;
using base::Result;
using base::text;

namespace {

QString titleOf(const QString& path)
{
    const QFileInfo info(path);
    // A name that is all extension, as ".png", keeps it.
    return info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
}

void setFileFields(store::Media& media, const StagedItem& staged, const QString& itemFolder)
{
    media.setMediaOriginalPath(staged.sourcePath);
    media.setMediaPath(staged.storedName.isEmpty() ? QStringLiteral("")
                                                   : itemFolder + u'/' + QLatin1String(store::kOriginalsDir) +
                                                         u'/' + staged.storedName);
    media.setMediaThumbPath(itemFolder + u'/' + QLatin1String(store::kPreviewDir) + u'/' +
                            QLatin1String(store::kPreviewFile));
    media.setMediaTitle(titleOf(staged.sourcePath));
    media.setMediaDocumentType(static_cast<int>(staged.analysis.type));
    media.setMediaFileSize(staged.fileSize);
    media.setMediaDateCreated(staged.created);
    media.setMediaDateModified(staged.modified);
}

void setIndexFields(store::Media& media, const StagedItem& staged)
{
    media.setMediaLabel(mediaLabelFromFileLabel(staged.index.labelNumber));
    media.setMediaCopyright(QStringLiteral(""));
    const QString& origin = staged.index.whereFrom;
    const bool isWebOrigin =
        origin.startsWith(QLatin1String("http")) || origin.startsWith(QLatin1String("HTTP"));
    const QString address = isWebOrigin ? origin : staged.item.url;
    if (!address.isEmpty()) {
        media.setMediaWeburl(address);
    }
    media.setMediaNotes(staged.index.comment.isEmpty() ? QStringLiteral("") : staged.index.comment);
}

/// Design documents carry no picture fields at all; documents of pages and of PostScript only size and
/// transparency.
void setPictureFields(store::Media& media, const AnalysisResult& analysis)
{
    const ImageMetadata& picture = analysis.metadata;
    const bool isPaged = analysis.type == DocumentType::Pdf || analysis.type == DocumentType::Illustrator ||
                         analysis.type == DocumentType::Eps;
    if (analysis.type >= DocumentType::AffinityDesigner) {
        return;
    }
    const QSizeF size =
        analysis.documentSize.isEmpty() ? QSizeF(picture.width, picture.height) : analysis.documentSize;
    media.setMediaWidth(size.width());
    media.setMediaHeight(size.height());
    media.setImageHasAlpha(picture.hasAlpha);
    if (isPaged) {
        return;
    }
    media.setImageDPI(picture.dpi);
    media.setImageDepth(picture.depth);
    media.setImageColorModel(picture.colorModel.isEmpty() ? QStringLiteral("") : picture.colorModel);
    media.setImageProfile(picture.profileName.isEmpty() ? QStringLiteral("") : picture.profileName);
    if (!picture.software.isEmpty()) {
        media.setMediaSoftware(picture.software);
    }
}

void setPdfFields(store::Media& media, const PdfMetadata& pdf)
{
    const auto given = [](const QString& said) { return said.isEmpty() ? QStringLiteral("") : said; };
    media.setPdfPageCount(pdf.pageCount);
    media.setPdfVersion(given(pdf.version));
    media.setPdfTitle(given(pdf.title));
    media.setPdfAuthor(given(pdf.author));
    media.setPdfSubject(given(pdf.subject));
    media.setPdfCreator(given(pdf.creator));
    media.setPdfProducer(given(pdf.producer));
    if (pdf.created.isValid()) {
        media.setPdfDateCreated(pdf.created);
    }
    if (pdf.modified.isValid()) {
        media.setPdfDateModified(pdf.modified);
    }
}

} // namespace

ItemCommitter::ItemCommitter(const ImportEnvironment& environment,
                             std::shared_ptr<store::Collections> collection, bool copyMode)
    : m_context(environment.context), m_package(environment.package), m_collection(std::move(collection)),
      m_copyMode(copyMode),
      m_grants(store::AccessList::read(environment.package), environment.bookmarks, environment.askForFolder)
{
}

Result<void> ItemCommitter::commit(StagedItem& staged)
{
    const bool isReference = !m_copyMode && !staged.item.isForcedCopy();
    if (isReference && !m_grants.admits(staged.sourcePath)) {
        return Failure{text("Failure.Import.NoAccess", QFileInfo(staged.sourcePath).path())};
    }
    if (!staged.outcome) {
        return staged.outcome;
    }
    const QDateTime date = QDateTime::currentDateTime();
    const QString itemFolder = store::LibraryPackage::itemFolder(date.date(), staged.mediaID);
    if (const auto placed = staged.folder.moveTo(m_package.masterDirPath() + itemFolder); !placed) {
        removeItemFolder(m_package.masterDirPath() + itemFolder);
        return placed;
    }
    return save(staged, itemFolder, date);
}

Result<void> ItemCommitter::save(StagedItem& staged, const QString& itemFolder, const QDateTime& date)
{
    const auto media = makeRecord(staged, itemFolder, date);
    linkColors(m_context, media, staged.analysis.colors);
    const auto tagColor = fileLabelColor(staged.index.labelNumber);
    linkTags(m_context, media, staged.index.tags,
             tagColor ? base::colorAsString(*tagColor) : QStringLiteral(""));
    auto saved = m_context.save();
    if (!saved) {
        m_context.rollback();
        removeItemFolder(m_package.masterDirPath() + itemFolder);
    }
    return saved;
}

std::shared_ptr<store::Media> ItemCommitter::makeRecord(const StagedItem& staged, const QString& itemFolder,
                                                        const QDateTime& date)
{
    auto media = m_context.insert<store::Media>();
    media->setMediaID(staged.mediaID);
    media->setMediaPID(m_collection->collectionID());
    setFileFields(*media, staged, itemFolder);
    media->setMediaDateImported(date);
    media->setMediaDateLastOpened(date);
    media->setMediaRating(0);
    setIndexFields(*media, staged);
    if (staged.analysis.hasFrames) {
        media->setImageHasFrames(true);
    }
    if (staged.analysis.kind != MediaKind::Unset) {
        media->setMediaKind(static_cast<int>(staged.analysis.kind));
    }
    setPictureFields(*media, staged.analysis);
    if (staged.analysis.pdf) {
        setPdfFields(*media, *staged.analysis.pdf);
    }
    media->setCollections(m_collection);
    return media;
}

void ItemCommitter::removeItemFolder(const QString& folder) const
{
    QDir(folder).removeRecursively();
    store::pruneDateFolders(QFileInfo(folder).path());
}

} // namespace mosaro::importing
