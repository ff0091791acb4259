#pragma once

#include "store/Record.h"

namespace mosaro::store {

class Collections;
class ColorList;
class MediaTagList;

/// One item of the library.
class Media final : public Record {
public:
    enum Attribute {
        k_imageColorModel,
        k_imageDepth,
        k_imageDPI,
        k_imageHasAlpha,
        k_imageHasFrames,
        k_imageProfile,
        k_mediaCopyright,
        k_mediaDateCreated,
        k_mediaDateImported,
        k_mediaDateLastOpened,
        k_mediaDateModified,
        k_mediaDocumentType,
        k_mediaFileSize,
        k_mediaHeight,
        k_mediaID,
        k_mediaKind,
        k_mediaLabel,
        k_mediaNotes,
        k_mediaOriginalPath,
        k_mediaPath,
        k_mediaPID,
        k_mediaRating,
        k_mediaSoftware,
        k_mediaThumbPath,
        k_mediaTitle,
        k_mediaWeburl,
        k_mediaWidth,
        k_pdfAuthor,
        k_pdfCreator,
        k_pdfProducer,
        k_pdfSubject,
        k_pdfTitle,
        k_pdfDateCreated,
        k_pdfDateModified,
        k_pdfPageCount,
        k_pdfVersion,
        k_videoDuration,
        k_videoFormat,
        k_mediaOtherInfo,
        k_collections,
        kAttributeCount
    };

    [[nodiscard]] static const EntityInfo& info();

    MOSARO_ATTRIBUTE(k_imageColorModel, QString, imageColorModel, setImageColorModel)
    MOSARO_ATTRIBUTE(k_imageDepth, qint64, imageDepth, setImageDepth)
    MOSARO_ATTRIBUTE(k_imageDPI, double, imageDPI, setImageDPI)
    MOSARO_ATTRIBUTE(k_imageHasAlpha, bool, imageHasAlpha, setImageHasAlpha)
    MOSARO_ATTRIBUTE(k_imageHasFrames, bool, imageHasFrames, setImageHasFrames)
    MOSARO_ATTRIBUTE(k_imageProfile, QString, imageProfile, setImageProfile)
    MOSARO_ATTRIBUTE(k_mediaCopyright, QString, mediaCopyright, setMediaCopyright)
    MOSARO_ATTRIBUTE(k_mediaDateCreated, QDateTime, mediaDateCreated, setMediaDateCreated)
    MOSARO_ATTRIBUTE(k_mediaDateImported, QDateTime, mediaDateImported, setMediaDateImported)
    MOSARO_ATTRIBUTE(k_mediaDateLastOpened, QDateTime, mediaDateLastOpened, setMediaDateLastOpened)
    MOSARO_ATTRIBUTE(k_mediaDateModified, QDateTime, mediaDateModified, setMediaDateModified)
    MOSARO_ATTRIBUTE(k_mediaDocumentType, qint64, mediaDocumentType, setMediaDocumentType)
    MOSARO_ATTRIBUTE(k_mediaFileSize, qint64, mediaFileSize, setMediaFileSize)
    MOSARO_ATTRIBUTE(k_mediaHeight, double, mediaHeight, setMediaHeight)
    MOSARO_ATTRIBUTE(k_mediaID, QString, mediaID, setMediaID)
    MOSARO_ATTRIBUTE(k_mediaKind, qint64, mediaKind, setMediaKind)
    MOSARO_ATTRIBUTE(k_mediaLabel, qint64, mediaLabel, setMediaLabel)
    MOSARO_ATTRIBUTE(k_mediaNotes, QString, mediaNotes, setMediaNotes)
    MOSARO_ATTRIBUTE(k_mediaOriginalPath, QString, mediaOriginalPath, setMediaOriginalPath)
    MOSARO_ATTRIBUTE(k_mediaPath, QString, mediaPath, setMediaPath)
    MOSARO_ATTRIBUTE(k_mediaPID, QString, mediaPID, setMediaPID)
    MOSARO_ATTRIBUTE(k_mediaRating, qint64, mediaRating, setMediaRating)
    MOSARO_ATTRIBUTE(k_mediaSoftware, QString, mediaSoftware, setMediaSoftware)
    MOSARO_ATTRIBUTE(k_mediaThumbPath, QString, mediaThumbPath, setMediaThumbPath)
    MOSARO_ATTRIBUTE(k_mediaTitle, QString, mediaTitle, setMediaTitle)
    MOSARO_ATTRIBUTE(k_mediaWeburl, QString, mediaWeburl, setMediaWeburl)
    MOSARO_ATTRIBUTE(k_mediaWidth, double, mediaWidth, setMediaWidth)
    MOSARO_ATTRIBUTE(k_pdfAuthor, QString, pdfAuthor, setPdfAuthor)
    MOSARO_ATTRIBUTE(k_pdfCreator, QString, pdfCreator, setPdfCreator)
    MOSARO_ATTRIBUTE(k_pdfProducer, QString, pdfProducer, setPdfProducer)
    MOSARO_ATTRIBUTE(k_pdfSubject, QString, pdfSubject, setPdfSubject)
    MOSARO_ATTRIBUTE(k_pdfTitle, QString, pdfTitle, setPdfTitle)
    MOSARO_ATTRIBUTE(k_pdfDateCreated, QDateTime, pdfDateCreated, setPdfDateCreated)
    MOSARO_ATTRIBUTE(k_pdfDateModified, QDateTime, pdfDateModified, setPdfDateModified)
    MOSARO_ATTRIBUTE(k_pdfPageCount, qint64, pdfPageCount, setPdfPageCount)
    MOSARO_ATTRIBUTE(k_pdfVersion, QString, pdfVersion, setPdfVersion)
    MOSARO_ATTRIBUTE(k_videoDuration, double, videoDuration, setVideoDuration)
    MOSARO_ATTRIBUTE(k_videoFormat, QString, videoFormat, setVideoFormat)
    MOSARO_ATTRIBUTE(k_mediaOtherInfo, QVariantMap, mediaOtherInfo, setMediaOtherInfo)

    /// To-one; null when not set.
    [[nodiscard]] std::shared_ptr<Collections> collections() const;
    void setCollections(const std::shared_ptr<Collections>& record);
    /// To-many, the inverse of ColorList::media: saved and unsaved records alike, in no order.
    [[nodiscard]] std::vector<std::shared_ptr<ColorList>> colorList() const;
    /// To-many, the inverse of MediaTagList::media: saved and unsaved records alike, in no order.
    [[nodiscard]] std::vector<std::shared_ptr<MediaTagList>> mediaTagList() const;

private:
    friend class StoreContext;
    Media(StoreContext& context, RowId rowId) : Record(info(), context, rowId) {}
};

} // namespace mosaro::store
