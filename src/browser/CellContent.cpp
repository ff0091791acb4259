#include "browser/CellContent.h"

#include "base/Text.h"
#include "import/MRBrowserItem.h"

#include <QFileInfo>
#include <QStringList>

namespace mosaro::browser {

FileState fileState(const FileFacts& facts)
{
    const QFileInfo info(facts.path);
    FileState state;
    state.readable = !facts.path.isEmpty() && info.isReadable();
    state.modified =
        state.readable && info.lastModified() != facts.dateModified && info.size() != facts.fileSize;
    return state;
}

CellContent cellContent(const importing::MRBrowserItem& item, bool hasTags)
{
    CellContent content;
    content.title = item.imageTitle();
    content.subtitle = item.imageSubtitle();
    content.rating = item.mediaRating();
    if (content.rating > 0) {
        content.ratingText = item.mediaRatingAsString();
        content.ratingShortText = item.mediaRatingAsShortString();
    }
    content.label = item.mediaLabel();
    content.hasTags = hasTags;
    content.isThirdPartyFormat = item.isThirdPartyFormat();
    content.isReferencedMedia = item.isReferencedMedia();
    content.badge = item.docSymbolBadge();
    content.background = item.thumbBackgroundColor();
    content.width = item.width();
    content.height = item.height();
    content.previewPath = item.imageRepresentation();
    content.imageVersion = item.imageVersion();
    content.file = {item.mediaPath(), item.dateModified(), item.fileSize()};
    return content;
}

QString accessibleText(const CellContent& content)
{
    QStringList parts{content.subtitle};
    if (content.rating > 0) {
        parts.append(base::text("Accessible.Rating", QString::number(content.rating)));
    }
    if (content.hasTags) {
        parts.append(base::text("Accessible.Tagged"));
    }
    if (content.isReferencedMedia) {
        parts.append(base::text("Accessible.Referenced"));
    }
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace mosaro::browser
