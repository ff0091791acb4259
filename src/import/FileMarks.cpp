#include "import/FileHeaders.h"

#include <array>

namespace mosaro::importing {

namespace {

struct Mark {
    DocumentType type;
    QByteArrayView bytes;
};

constexpr std::array<Mark, 6> kDocumentMarks = {{{DocumentType::Ico, {"\0\0\1\0", 4}},
                                                 {DocumentType::Icns, {"icns", 4}},
                                                 {DocumentType::Photoshop, {"8BPS", 4}},
                                                 {DocumentType::Pdf, {"%PDF-", 5}},
                                                 {DocumentType::Eps, {"%!PS", 4}},
                                                 {DocumentType::Eps, {"\xc5\xd0\xd3\xc6", 4}}}};

/// Text whose first element is a drawing, behind a declaration and notes.
bool isSvgText(QByteArray head)
{
    if (head.startsWith("\xef\xbb\xbf"))
        head.remove(0, 3);
    head = head.trimmed();
    const bool isMarkup = head.startsWith("<?xml") || head.startsWith("<!");
    return head.startsWith("<svg") || (isMarkup && (head.contains("<svg") || head.contains("<!DOCTYPE svg")));
}

} // namespace

DocumentType documentTypeOf(BitmapFormat format)
{
    switch (format) {
    case BitmapFormat::Jpeg:
        return DocumentType::Jpeg;
    case BitmapFormat::Gif:
        return DocumentType::Gif;
    case BitmapFormat::Tiff:
        return DocumentType::Tiff;
    case BitmapFormat::Bmp:
        return DocumentType::Bmp;
    case BitmapFormat::Tga:
        return DocumentType::Tga;
    case BitmapFormat::Jpeg2000:
        return DocumentType::Jpeg2000;
    case BitmapFormat::Pict:
        return DocumentType::Pict;
    case BitmapFormat::QuickTimeImage:
        return DocumentType::QuickTimeImage;
    case BitmapFormat::Png:
        break;
    }
    return DocumentType::Png;
}

std::optional<DocumentType> markedTypeOf(const QByteArray& head)
{
    if (const std::optional<BitmapFormat> format = bitmapFormatOf(head, DocumentType::Png))
        return documentTypeOf(*format);
    for (const Mark& mark : kDocumentMarks) {
        if (head.startsWith(mark.bytes))
            return mark.type;
    }
    return isSvgText(head.left(kTypeHeadBytes)) ? std::optional(DocumentType::Svg) : std::nullopt;
}

} // namespace mosaro::importing
