#pragma once

#include "base/ColorText.h"
#include "import/MediaClassification.h"
#include "store/Media.h"

#include <QDateTime>
#include <QStringList>
#include <QUrl>
#include <memory>
#include <optional>
#include <vector>

namespace mosaro::store {
class Colors;
class Tags;
} // namespace mosaro::store

namespace mosaro::importing {

/// The read model of one item: absolute paths, the file that can be drawn, values for people, and the grid's
/// item contract. Cheap and short-lived. Without a record every accessor gives an empty value (mediaKindType
/// gives 15).
class MRBrowserItem {
public:
    /// `masterDirPath` is the open library's; without one paths come out relative and nothing is readable.
    MRBrowserItem(std::shared_ptr<store::Media> media, QString masterDirPath);

    void setMedia(std::shared_ptr<store::Media> media) { m_media = std::move(media); }
    [[nodiscard]] const std::shared_ptr<store::Media>& media() const { return m_media; }
    [[nodiscard]] int sortKey() const { return m_sortKey; }
    void setSortKey(int key) { m_sortKey = key; }
    [[nodiscard]] int imageVersion() const { return m_imageVersion; }
    void raiseImageVersion() { ++m_imageVersion; }

    // The grid's contract.
    [[nodiscard]] QString imageUID() const { return thumbPath(); }
    [[nodiscard]] QString imageRepresentation() const { return thumbPath(); }
    [[nodiscard]] QString imageTitle() const { return title(); }
    [[nodiscard]] QString imageSubtitle() const;

    // Paths and files.
    [[nodiscard]] QString mediaID() const;
    [[nodiscard]] QString mediaPID() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString originPath() const;
    [[nodiscard]] QString mediaPath() const;
    [[nodiscard]] QString thumbPath() const;
    [[nodiscard]] QString itemFolderPath() const;
    [[nodiscard]] QString fullSizePreviewPath() const;
    [[nodiscard]] QString mediaReadablePath() const;
    [[nodiscard]] QUrl mediaURL() const;
    [[nodiscard]] QUrl mediaShareURL() const;
    [[nodiscard]] QString mediaFilename() const;
    [[nodiscard]] QString mediaExtension() const;
    [[nodiscard]] QString mediaFilterSettingPath() const;
    [[nodiscard]] QString mediaColorTablePath() const;

    // Tests.
    [[nodiscard]] bool mediaFileIsModified() const;
    [[nodiscard]] bool isReadableMediaAtPath() const;
    [[nodiscard]] bool isReferencedMedia() const;
    [[nodiscard]] bool hasURLInfo() const;
    [[nodiscard]] bool hasThumbBackground() const { return thumbBackgroundColor().has_value(); }
    [[nodiscard]] bool isThirdPartyFormat() const;
    [[nodiscard]] bool isPDF() const;
    [[nodiscard]] bool isMovieFile() const;

    // Document, kind, badges.
    [[nodiscard]] int documentType() const;
    [[nodiscard]] int mediaKindType() const;
    [[nodiscard]] QString documentTypeAsString() const;
    [[nodiscard]] QString mediaKindTypeAsString() const;
    [[nodiscard]] QString docSymbolBadge() const;
    [[nodiscard]] QString docSymbolRetinaBadge() const;
    [[nodiscard]] QString labelSymbolBadge() const;
    [[nodiscard]] QString labelSymbolRetinaBadge() const;
    [[nodiscard]] int mediaLabel() const;

    // Values and their texts.
    [[nodiscard]] qint64 fileSize() const;
    [[nodiscard]] QString fileSizeAsString() const;
    [[nodiscard]] QDateTime dateCreated() const;
    [[nodiscard]] QDateTime dateModified() const;
    [[nodiscard]] QDateTime dateImported() const;
    [[nodiscard]] QDateTime dateLastOpened() const;
    [[nodiscard]] QString dateCreatedAsString() const;
    [[nodiscard]] QString dateModifiedAsString() const;
    [[nodiscard]] QString dateImportedAsString() const;
    [[nodiscard]] QString dateLastOpenedAsString() const;
    [[nodiscard]] int mediaRating() const;
    [[nodiscard]] QString mediaRatingAsShortString() const;
    [[nodiscard]] QString mediaRatingAsString() const;
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;
    [[nodiscard]] QString widthAsString() const;
    [[nodiscard]] QString heightAsString() const;
    [[nodiscard]] QString widthAsStringWithDocument() const;
    [[nodiscard]] QString heightAsStringWithDocument() const;
    [[nodiscard]] QString imageSizeWithDocument() const;
    [[nodiscard]] QString imageSize() const;
    [[nodiscard]] int imageDPI() const;
    [[nodiscard]] QString imageDPIAsString() const;
    [[nodiscard]] QString imageColorModel() const;
    [[nodiscard]] QString imageProfile() const;
    [[nodiscard]] int imageDepth() const;
    [[nodiscard]] bool imageHasAlpha() const;
    [[nodiscard]] QString imageHasAlphaAsString() const;
    [[nodiscard]] bool imageHasFrames() const;
    [[nodiscard]] QString copyright() const;
    [[nodiscard]] QString notes() const;
    [[nodiscard]] QString mediaSoftware() const;
    [[nodiscard]] QString url() const;
    [[nodiscard]] QString pdfTitle() const;
    [[nodiscard]] QString pdfSubject() const;
    [[nodiscard]] QString pdfVersion() const;
    [[nodiscard]] QString pdfAuthor() const;
    [[nodiscard]] QString pdfCreator() const;
    [[nodiscard]] QString pdfProducer() const;
    [[nodiscard]] int pdfPageCount() const;
    [[nodiscard]] QDateTime pdfDateCreated() const;
    [[nodiscard]] QDateTime pdfDateModifiied() const;
    [[nodiscard]] QString pdfDateCreatedAsString() const;
    [[nodiscard]] QString pdfDateModifiedAsString() const;
    [[nodiscard]] std::optional<base::ColorValue> thumbBackgroundColor() const;

    // Relations.
    [[nodiscard]] std::vector<std::shared_ptr<store::Colors>> colors() const;
    [[nodiscard]] QString backgroundColorAsString() const;
    [[nodiscard]] QString primaryColorAsString() const;
    [[nodiscard]] QString secondaryColorAsString() const;
    [[nodiscard]] QString detailColorAsString() const;
    [[nodiscard]] std::shared_ptr<store::Collections> collection() const;
    [[nodiscard]] QString collectionTitle() const;
    [[nodiscard]] QString collectionID() const;
    [[nodiscard]] QString collectionCreatedAsString() const;
    [[nodiscard]] QString collectionModifiedAsString() const;
    [[nodiscard]] int collectionLabel() const;
    [[nodiscard]] qint64 collectionMediaCount() const;
    [[nodiscard]] std::vector<std::shared_ptr<store::Tags>> tags() const;
    [[nodiscard]] QStringList tagsWithName() const;

private:
    [[nodiscard]] QString inMasters(const QString& stored) const;
    [[nodiscard]] QString colorAsStringOfType(int colorType) const;

    std::shared_ptr<store::Media> m_media;
    QString m_masterDirPath;
    int m_sortKey = 7;
    int m_imageVersion = 1;
};

} // namespace mosaro::importing
