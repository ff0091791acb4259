#include "import/MediaClassification.h"

#include "base/Text.h"
#include "import/DocumentTypeTable.h"

#include <QFileInfo>
#include <QVariantMap>
#include <array>

namespace mosaro::importing {

namespace {

QString extensionOf(const QString& path)
{
    return QFileInfo(path).suffix();
}

const DocumentTypeRow* rowOfExtension(const QString& lowerExtension)
{
    for (const DocumentTypeRow& row : documentTypeTable()) {
        if (row.extensions.contains(lowerExtension))
            return &row;
    }
    return nullptr;
}

const DocumentTypeRow* rowOfMimeName(const QString& mime, const platform::TypeDatabase& types)
{
    for (const DocumentTypeRow& row : documentTypeTable()) {
        for (const QString& name : row.mimeNames) {
            if (mime == name || (row.inherits && types.inherits(mime, name)))
                return &row;
        }
    }
    return nullptr;
}

bool isDesignDocument(DocumentType type)
{
    return type >= DocumentType::AffinityDesigner;
}

} // namespace

MediaClassification::MediaClassification(const platform::TypeDatabase& types,
                                         const platform::ThumbnailerLookup& thumbnailers)
    : m_types(types), m_thumbnailers(thumbnailers)
{
}

std::optional<DocumentType> MediaClassification::documentTypeForExtension(const QString& extension) const
{
    if (extension.isEmpty())
        return std::nullopt;
    const QString lower = extension.toLower();
    const DocumentTypeRow* row = rowOfExtension(lower);
    if (row && !isDesignDocument(row->type))
        return row->type;

    const QString mime = m_types.mimeTypeForExtension(extension);
    if (!row && !mime.isEmpty())
        row = rowOfMimeName(mime, m_types);
    if (!row)
        return std::nullopt;
    if (row->type == DocumentType::AffinityDesigner || row->type == DocumentType::AffinityPhoto)
        return affinityType(lower, mime == kAffinityFamilyMime);
    if (isDesignDocument(row->type) && !installed(row->type))
        return std::nullopt;
    return row->type;
}

// With the type that both applications share, either of them vouches for the documents of both; with a type
// of its own, each application vouches only for its own documents.
std::optional<DocumentType> MediaClassification::affinityType(const QString& lowerExtension,
                                                              bool sharedType) const
{
    const bool designer = installedAffinityDesigner();
    const bool photo = installedAffinityPhoto();
    const bool either = sharedType && (designer || photo);
    if (lowerExtension == QLatin1String("afdesign") && (designer || either))
        return DocumentType::AffinityDesigner;
    if (lowerExtension == QLatin1String("afphoto") && (photo || either))
        return DocumentType::AffinityPhoto;
    return std::nullopt;
}

QString MediaClassification::mediaContentType(const QString& path) const
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return {};
    const std::optional<DocumentType> type = documentTypeForExtension(extensionOf(path));
    return type ? contentTypeName(*type) : QString();
}

QString MediaClassification::thumbnailerCommand(DocumentType type) const
{
    return m_thumbnailers.thumbnailerCommand(rowOfDocumentType(type).mimeNames);
}

int MediaClassification::mediaContentTypeAsInteger(const QString& path) const
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return 0;
    return static_cast<int>(documentTypeForExtension(extensionOf(path)).value_or(DocumentType::Pdf));
}

int MediaClassification::mediaKindOfPath(const QString& path, QSize withSize) const
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return static_cast<int>(MediaKind::Other);
    const std::optional<DocumentType> type = documentTypeForExtension(extensionOf(path));
    return static_cast<int>(type ? kindOf(*type, withSize) : kindOfSize(withSize));
}

QStringList MediaClassification::allowedMedia() const
{
    QStringList lower = {
        QStringLiteral("gif"),  QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("jp2"),
        QStringLiteral("icns"), QStringLiteral("tif"), QStringLiteral("tiff"), QStringLiteral("bmp"),
        QStringLiteral("psd"),  QStringLiteral("ico"), QStringLiteral("ai"),   QStringLiteral("eps"),
        QStringLiteral("pdf"),  QStringLiteral("svg"), QStringLiteral("png"),  QStringLiteral("tga"),
    };
    for (const DocumentTypeRow& row : documentTypeTable()) {
        if (isDesignDocument(row.type) && installed(row.type))
            lower.append(row.extensions.first());
    }
    QStringList both;
    for (const QString& extension : lower)
        both << extension << extension.toUpper();
    return both;
}

// A document format is as good as installed when something on this machine can render it.
bool MediaClassification::installed(DocumentType type) const
{
    return m_thumbnailers.hasThumbnailer(rowOfDocumentType(type).mimeNames);
}

bool MediaClassification::installedAffinityDesigner() const
{
    return installed(DocumentType::AffinityDesigner);
}

bool MediaClassification::installedAffinityPhoto() const
{
    return installed(DocumentType::AffinityPhoto);
}

bool MediaClassification::installediDraw() const
{
    return installed(DocumentType::IDraw);
}

bool MediaClassification::installedPixelmator() const
{
    return installed(DocumentType::Pixelmator);
}

bool MediaClassification::installedSketch() const
{
    return installed(DocumentType::Sketch);
}

bool MediaClassification::installedAcorn() const
{
    return installed(DocumentType::Acorn);
}

int MediaClassification::documentType(const QString& smartRuleKey)
{
    if (smartRuleKey.isEmpty())
        return -1;
    for (const DocumentTypeRow& row : documentTypeTable()) {
        if (row.ruleKey == smartRuleKey)
            return static_cast<int>(row.type);
    }
    return -1;
}

QString MediaClassification::contentTypeName(DocumentType type)
{
    return rowOfDocumentType(type).name;
}

QString MediaClassification::mediaDocumentType(int number)
{
    static constexpr std::array<const char*, 23> kKeys = {
        "Document.PDF",
        "Document.JPEG",
        "Document.JPEG2000",
        "Document.TIFF",
        "Document.PICT",
        "Document.GIF",
        "Document.PNG",
        "Document.QuickTime.Image",
        "Document.ICNS",
        "Document.BMP",
        "Document.ICO",
        "Document.RAW.Image",
        "Document.SVG",
        "Document.TGA",
        "Document.Photoshop",
        "Document.AI",
        "Document.EPS",
        "Document.AFFINITY.DESIGNER",
        "Document.AFFINITY.PHOTO",
        "Document.IDRAW",
        "Document.PIXELMATOR",
        "Document.SKETCH",
        "Document.ACORN",
    };
    if (number < 0 || number >= static_cast<int>(kKeys.size()))
        return {};
    return base::text(kKeys.at(static_cast<std::size_t>(number)));
}

} // namespace mosaro::importing
