#include "support/TemporaryLibrary.h"

#include "base/Text.h"
#include "store/ColorList.h"
#include "store/MediaTagList.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace mosaro::test {

namespace {

template <class Owner>
void setNewestFirst(Owner& owner)
{
    owner.setIsAscending(false);
    owner.setSortKey(7);
    owner.setZoomValue(0.4);
}

} // namespace

QString freshID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

TemporaryLibrary::TemporaryLibrary()
{
    base::installTexts();
    m_manager.setUp(m_defaults, m_bookmarks, m_root.path() + u"/support"_s);
    m_manager.setPrompts(&m_prompts);
    if (!m_manager.createLibaryAtPath(packagePath()))
        qFatal("no temporary library: %s", qUtf8Printable(m_manager.lastError()));
}

TemporaryLibrary::~TemporaryLibrary()
{
    m_manager.closeDatabase();
    m_manager.setPrompts(nullptr);
}

QString TemporaryLibrary::folder(const QString& name)
{
    const QString path = m_root.path() + u'/' + name;
    QDir().mkpath(path);
    return path;
}

bool TemporaryLibrary::reopen()
{
    m_manager.closeDatabase();
    return m_manager.validateDatabaseAtURL(packagePath());
}

void TemporaryLibrary::save()
{
    if (const auto saved = context().save(); !saved)
        qFatal("save: %s", qUtf8Printable(saved.reason()));
}

std::shared_ptr<store::Collections> TemporaryLibrary::addCollection(const QString& title, qint64 type,
                                                                    const QString& parentID)
{
    const QDateTime now = QDateTime::currentDateTime();
    auto collection = context().insert<store::Collections>();
    collection->setCollectionID(freshID());
    collection->setCollectionPID(parentID);
    collection->setTitle(title);
    collection->setType(type);
    collection->setDateCreated(now);
    collection->setDateModified(now);
    setNewestFirst(*collection);
    collection->setLabel(0);
    save();
    return collection;
}

std::shared_ptr<store::Media>
TemporaryLibrary::addMedia(const QString& title, const std::shared_ptr<store::Collections>& collection,
                           bool files)
{
    const QDateTime now = QDateTime::currentDateTime();
    auto media = context().insert<store::Media>();
    media->setMediaID(freshID());
    media->setMediaTitle(title);
    media->setMediaKind(15);
    media->setMediaDocumentType(6);
    media->setMediaFileSize(1000);
    media->setMediaWidth(640);
    media->setMediaHeight(480);
    media->setMediaRating(0);
    media->setMediaLabel(0);
    media->setMediaNotes(QString());
    media->setMediaCopyright(QString());
    media->setMediaDateCreated(now);
    media->setMediaDateModified(now);
    media->setMediaDateImported(now);
    media->setMediaDateLastOpened(now);
    const QString item = store::LibraryPackage::itemFolder(now.date(), media->mediaID());
    media->setMediaPath(item + u"/Originals/file.png"_s);
    media->setMediaThumbPath(item + u"/Preivew/preview.png"_s);
    media->setMediaOriginalPath(m_root.path() + u"/files/file.png"_s);
    media->setMediaPID(collection->collectionID());
    media->setCollections(collection);
    save();
    if (files) {
        writeFile(package().masterDirPath() + media->mediaPath(), "original");
        writeFile(package().masterDirPath() + media->mediaThumbPath(), "preview");
    }
    return media;
}

std::shared_ptr<store::Tags> TemporaryLibrary::addTag(const QString& title)
{
    auto tag = context().insert<store::Tags>();
    tag->setTagID(freshID());
    tag->setTitle(title);
    tag->setTagColor(QString());
    setNewestFirst(*tag);
    save();
    return tag;
}

void TemporaryLibrary::link(const std::shared_ptr<store::Media>& media,
                            const std::shared_ptr<store::Tags>& tag)
{
    auto link = context().insert<store::MediaTagList>();
    link->setMediaID(media->mediaID());
    link->setTagID(tag->tagID());
    link->setMedia(media);
    link->setTags(tag);
    save();
}

std::shared_ptr<store::Colors> TemporaryLibrary::addColor(const QString& colorID, qint64 colorType)
{
    auto color = context().insert<store::Colors>();
    color->setColorID(colorID);
    color->setColorType(colorType);
    color->setIsLike(false);
    setNewestFirst(*color);
    save();
    return color;
}

void TemporaryLibrary::link(const std::shared_ptr<store::Media>& media,
                            const std::shared_ptr<store::Colors>& color)
{
    auto link = context().insert<store::ColorList>();
    link->setMediaID(media->mediaID());
    link->setColorID(color->colorID());
    link->setColorType(color->colorType());
    link->setMedia(media);
    link->setColors(color);
    save();
}

} // namespace mosaro::test
