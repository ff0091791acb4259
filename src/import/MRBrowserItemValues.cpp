// The values of MRBrowserItem and their texts for people.
#include "base/Text.h"
#include "base/ZNFileManager.h"
#include "import/BrowserTables.h"
#include "import/MRBrowserItem.h"
#include "store/Collections.h"

#include <QLocale>
#include <limits>

namespace mosaro::importing {

using base::text;

namespace {

constexpr char16_t kStar = u'\u2605';

QString dateText(const QDateTime& date)
{
    return date.isValid() ? QLocale().toString(date.toLocalTime(), QLocale::ShortFormat) : QString();
}

/// The whole part, held to the range of the result.
int wholeNumber(double value)
{
    constexpr double kMost = std::numeric_limits<int>::max();
    return value > -kMost && value < kMost ? static_cast<int>(value) : 0;
}

QString sizeText(int width, int height)
{
    return QStringLiteral("%1 x %2").arg(width).arg(height);
}

QString unknown()
{
    return QStringLiteral("-----");
}

} // namespace

qint64 MRBrowserItem::fileSize() const
{
    return m_media ? m_media->mediaFileSize() : 0;
}

QString MRBrowserItem::fileSizeAsString() const
{
    return m_media ? base::ZNFileManager().fileSizeAsString(fileSize()) : QString();
}

QDateTime MRBrowserItem::dateCreated() const
{
    return m_media ? m_media->mediaDateCreated() : QDateTime();
}

QDateTime MRBrowserItem::dateModified() const
{
    return m_media ? m_media->mediaDateModified() : QDateTime();
}

QDateTime MRBrowserItem::dateImported() const
{
    return m_media ? m_media->mediaDateImported() : QDateTime();
}

QDateTime MRBrowserItem::dateLastOpened() const
{
    return m_media ? m_media->mediaDateLastOpened() : QDateTime();
}

QString MRBrowserItem::dateCreatedAsString() const
{
    return dateText(dateCreated());
}

QString MRBrowserItem::dateModifiedAsString() const
{
    return dateText(dateModified());
}

QString MRBrowserItem::dateImportedAsString() const
{
    return dateText(dateImported());
}

QString MRBrowserItem::dateLastOpenedAsString() const
{
    return dateText(dateLastOpened());
}

int MRBrowserItem::mediaRating() const
{
    return m_media ? static_cast<int>(m_media->mediaRating()) : 0;
}

QString MRBrowserItem::mediaRatingAsShortString() const
{
    return m_media ? QStringLiteral("%1 %2").arg(QChar(kStar)).arg(mediaRating()) : QString();
}

QString MRBrowserItem::mediaRatingAsString() const
{
    constexpr int kMostStars = 5;
    const int rating = mediaRating();
    if (!m_media || rating < 0 || rating > kMostStars) {
        return {};
    }
    return rating == 0 ? text("Basic.None") : QString(rating, QChar(kStar));
}

int MRBrowserItem::width() const
{
    return m_media ? wholeNumber(m_media->mediaWidth()) : 0;
}

int MRBrowserItem::height() const
{
    return m_media ? wholeNumber(m_media->mediaHeight()) : 0;
}

QString MRBrowserItem::widthAsString() const
{
    return m_media ? text("Label.Width", QString::number(width())) : QString();
}

QString MRBrowserItem::heightAsString() const
{
    return m_media ? text("Label.Height", QString::number(height())) : QString();
}

QString MRBrowserItem::widthAsStringWithDocument() const
{
    return isThirdPartyFormat() ? designApplication(documentType()) : widthAsString();
}

QString MRBrowserItem::heightAsStringWithDocument() const
{
    return isThirdPartyFormat() ? designApplication(documentType()) : heightAsString();
}

QString MRBrowserItem::imageSizeWithDocument() const
{
    if (isThirdPartyFormat()) {
        return designApplication(documentType());
    }
    return m_media ? sizeText(width(), height()) : QString();
}

QString MRBrowserItem::imageSize() const
{
    if (isThirdPartyFormat()) {
        return unknown();
    }
    return m_media ? sizeText(width(), height()) : QString();
}

int MRBrowserItem::imageDPI() const
{
    return m_media ? wholeNumber(m_media->imageDPI()) : 0;
}

QString MRBrowserItem::imageDPIAsString() const
{
    return m_media ? QStringLiteral("%1 pixel/inch").arg(imageDPI()) : QString();
}

QString MRBrowserItem::imageColorModel() const
{
    return m_media ? m_media->imageColorModel() : QString();
}

QString MRBrowserItem::imageProfile() const
{
    return m_media ? m_media->imageProfile() : QString();
}

int MRBrowserItem::imageDepth() const
{
    return m_media ? static_cast<int>(m_media->imageDepth()) : 0;
}

bool MRBrowserItem::imageHasAlpha() const
{
    return m_media && m_media->imageHasAlpha();
}

QString MRBrowserItem::imageHasAlphaAsString() const
{
    if (!m_media) {
        return {};
    }
    if (imageHasAlpha()) {
        return text("Basic.YES");
    }
    return isThirdPartyFormat() ? unknown() : text("Basic.NO");
}

bool MRBrowserItem::imageHasFrames() const
{
    return m_media && m_media->imageHasFrames();
}

QString MRBrowserItem::copyright() const
{
    return m_media ? m_media->mediaCopyright() : QString();
}

QString MRBrowserItem::notes() const
{
    return m_media ? m_media->mediaNotes() : QString();
}

QString MRBrowserItem::mediaSoftware() const
{
    return m_media ? m_media->mediaSoftware() : QString();
}

QString MRBrowserItem::url() const
{
    const QString address = m_media ? m_media->mediaWeburl() : QString();
    const bool isWeb =
        address.startsWith(QLatin1String("http://")) || address.startsWith(QLatin1String("https://"));
    return isWeb ? address : QString();
}

QString MRBrowserItem::pdfTitle() const
{
    return m_media ? m_media->pdfTitle() : QString();
}

QString MRBrowserItem::pdfSubject() const
{
    return m_media ? m_media->pdfSubject() : QString();
}

QString MRBrowserItem::pdfVersion() const
{
    return m_media ? m_media->pdfVersion() : QString();
}

QString MRBrowserItem::pdfAuthor() const
{
    return m_media ? m_media->pdfAuthor() : QString();
}

QString MRBrowserItem::pdfCreator() const
{
    return m_media ? m_media->pdfCreator() : QString();
}

QString MRBrowserItem::pdfProducer() const
{
    return m_media ? m_media->pdfProducer() : QString();
}

int MRBrowserItem::pdfPageCount() const
{
    return m_media ? static_cast<int>(m_media->pdfPageCount()) : 0;
}

QDateTime MRBrowserItem::pdfDateCreated() const
{
    return m_media ? m_media->pdfDateCreated() : QDateTime();
}

QDateTime MRBrowserItem::pdfDateModifiied() const
{
    return m_media ? m_media->pdfDateModified() : QDateTime();
}

QString MRBrowserItem::pdfDateCreatedAsString() const
{
    return dateText(pdfDateCreated());
}

QString MRBrowserItem::pdfDateModifiedAsString() const
{
    return dateText(pdfDateModifiied());
}

std::optional<base::ColorValue> MRBrowserItem::thumbBackgroundColor() const
{
    const QVariantMap other = m_media ? m_media->mediaOtherInfo() : QVariantMap();
    return base::colorFromString(other.value(QStringLiteral("BackgroundColor")).toString());
}

QString MRBrowserItem::collectionCreatedAsString() const
{
    const auto owner = collection();
    return owner ? dateText(owner->dateCreated()) : QString();
}

QString MRBrowserItem::collectionModifiedAsString() const
{
    const auto owner = collection();
    return owner ? dateText(owner->dateModified()) : QString();
}

} // namespace mosaro::importing
