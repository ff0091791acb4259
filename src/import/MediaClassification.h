#pragma once

#include "platform/Ports.h"

#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <optional>

namespace mosaro::importing {

/// The file formats, numbered as stored in mediaDocumentType.
enum class DocumentType {
    Pdf = 0,
    Jpeg,
    Jpeg2000,
    Tiff,
    Pict,
    Gif,
    Png,
    QuickTimeImage,
    Icns,
    Bmp,
    Ico,
    Raw,
    Svg,
    Tga,
    Photoshop,
    Illustrator,
    Eps,
    AffinityDesigner,
    AffinityPhoto,
    IDraw,
    Pixelmator,
    Sketch,
    Acorn
};

/// What an item is for, numbered as stored in mediaKind.
enum class MediaKind {
    Unset = -1,
    Screen = 4,
    Phone,
    Tablet,
    Web,
    Icon,
    Button,
    Interface,
    AnimatedGif,
    Wallpaper,
    Movie,
    Pdf,
    Other
};

/// The one classifier: document type and kind of files, the accepted extensions and the texts of both tables.
/// Holds no state; every answer comes from the path and from what the desktop offers at that moment.
class MediaClassification {
public:
    MediaClassification(const platform::TypeDatabase& types, const platform::ThumbnailerLookup& thumbnailers);

    /// Extensions that the open panel and web drops accept.
    [[nodiscard]] QStringList allowedMedia() const;
    /// Content type name, or empty when there is no file or no row matches.
    [[nodiscard]] QString mediaContentType(const QString& path) const;
    /// 0 for PDF and for no match alike.
    [[nodiscard]] int mediaContentTypeAsInteger(const QString& path) const;
    /// The row that the file name's extension leads to, with no look at the disk.
    [[nodiscard]] std::optional<DocumentType> documentTypeForExtension(const QString& extension) const;
    /// Command line of the desktop's thumbnailer for the documents of a type, or empty.
    [[nodiscard]] QString thumbnailerCommand(DocumentType type) const;
    [[nodiscard]] int mediaKindOfPath(const QString& path, QSize withSize) const;

    [[nodiscard]] bool installedAffinityDesigner() const;
    [[nodiscard]] bool installedAffinityPhoto() const;
    [[nodiscard]] bool installediDraw() const;
    [[nodiscard]] bool installedPixelmator() const;
    [[nodiscard]] bool installedSketch() const;
    [[nodiscard]] bool installedAcorn() const;

    /// Number of a smart rule key as "jpg, jpeg", or -1.
    [[nodiscard]] static int documentType(const QString& smartRuleKey);
    [[nodiscard]] static QString contentTypeName(DocumentType type);
    [[nodiscard]] static QString mediaDocumentType(int number);
    [[nodiscard]] static QString mediaKindType(int number);
    /// Maps with "title" and "tag", in table order, without Movie.
    [[nodiscard]] static QVariantList mediaKindList();
    /// The kind that format and pixel size give together.
    [[nodiscard]] static MediaKind kindOf(DocumentType type, QSize size);
    /// The kind that a pixel size alone gives: Phone, Tablet, Wallpaper or Other.
    [[nodiscard]] static MediaKind kindOfSize(QSize size);
    [[nodiscard]] static const QStringList& phoneResolutions();
    [[nodiscard]] static const QStringList& tabletResolutions();
    [[nodiscard]] static const QStringList& wallpaperResolutions();

private:
    [[nodiscard]] bool installed(DocumentType type) const;
    [[nodiscard]] std::optional<DocumentType> affinityType(const QString& lowerExtension,
                                                           bool sharedType) const;

    const platform::TypeDatabase& m_types;
    const platform::ThumbnailerLookup& m_thumbnailers;
};

/// Label number of a file to mediaLabel, and back; numbers above 7 and below 0 give 0.
[[nodiscard]] int mediaLabelFromFileLabel(int fileLabelNumber);
[[nodiscard]] int fileLabelFromMediaLabel(int mediaLabel);

} // namespace mosaro::importing
