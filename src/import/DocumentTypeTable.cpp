#include "import/DocumentTypeTable.h"

namespace mosaro::importing {

namespace {

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

// Camera raw files often are TIFF files inside, and some desktops say so; the fixed extensions settle it.
constexpr const char* kRawExtensions =
    "raw 3fr arw bay cr2 cr3 crw dcr dcs dng drf eip erf fff iiq k25 kdc mdc mef mos mrw nef nrw orf pef ptx "
    "raf rw2 rwl sr2 srf srw x3f";
constexpr const char* kRawMimeNames =
    "image/x-dcraw image/x-adobe-dng image/x-canon-cr2 image/x-canon-cr3 image/x-canon-crw image/x-fuji-raf "
    "image/x-kodak-dcr image/x-kodak-k25 image/x-kodak-kdc image/x-minolta-mrw image/x-nikon-nef "
    "image/x-nikon-nrw image/x-olympus-orf image/x-panasonic-rw image/x-panasonic-rw2 image/x-pentax-pef "
    "image/x-sigma-x3f image/x-sony-arw image/x-sony-sr2 image/x-sony-srf";

std::vector<DocumentTypeRow> makeTable()
{
    using L = QLatin1String;
    using T = DocumentType;
    return {
        {T::Pdf, L("Portable Document Format (PDF)"), L("pdf"), words("pdf"), words("application/pdf")},
        {T::Jpeg, L("JPEG Image"), L("jpg, jpeg"), words("jpg jpeg jpe jfif"), words("image/jpeg")},
        {T::Jpeg2000, L("JPEG 2000 Image"), L("jp2"), words("jp2 j2k jpf jpx"),
         words("image/jp2 image/jpx image/jpm image/x-jp2-codestream")},
        {T::Tiff, L("TIFF Image"), L("tif, tiff"), words("tif tiff"), words("image/tiff")},
        {T::Pict, L("PICT Image"), L(), words("pict pct"), words("image/x-pict")},
        {T::Gif, L("GIF Image"), L("gif"), words("gif"), words("image/gif")},
        {T::Png, L("PNG Image"), L("png"), words("png"), words("image/png")},
        {T::QuickTimeImage, L("Apple QuickTime Image"), L(), words("qtif qif qti"),
         words("image/x-quicktime image/qtif")},
        {T::Icns, L("Apple Icon Image"), L("icns"), words("icns"), words("image/x-icns image/icns")},
        {T::Bmp, L("Microsoft Bitmap Image"), L("bmp"), words("bmp dib"), words("image/bmp image/x-bmp")},
        {T::Ico, L("Microsoft Icon Image"), L("ico"), words("ico"),
         words("image/vnd.microsoft.icon image/x-icon")},
        {T::Raw, L("RAW Image"), L("raw"), words(kRawExtensions), words(kRawMimeNames)},
        {T::Svg, L("Scalable Vector Graphics (SVG)"), L("svg"), words("svg"), words("image/svg+xml")},
        {T::Tga, L("TGA Image"), L("tga"), words("tga icb vda vst targa"), words("image/x-tga image/tga"),
         false},
        {T::Photoshop, L("Adobe Photoshop Image"), L("psd"), words("psd"),
         words("image/vnd.adobe.photoshop image/x-psd"), false},
        {T::Illustrator, L("Adobe Illustrator Document"), L("ai"), words("ai"),
         words("application/illustrator application/vnd.adobe.illustrator"), false},
        {T::Eps, L("Encapsulated PostScript"), L("eps"), words("eps epsf epsi ps"),
         words("application/postscript image/x-eps"), false},
        {T::AffinityDesigner, L("Affinity Designer"), L("afdesign"), words("afdesign"),
         words("application/x-affinity-designer application/x-affinity"), false},
        {T::AffinityPhoto, L("Affinity Photo"), L("afphoto"), words("afphoto"),
         words("application/x-affinity-photo application/x-affinity"), false},
        {T::IDraw, L("iDraw"), L("idraw"), words("idraw"), words("application/x-idraw"), false},
        {T::Pixelmator, L("Pixelmator"), L("pxm"), words("pxm"), words("application/x-pixelmator"), false},
        {T::Sketch, L("Sketch 3"), L("sketch"), words("sketch"), words("application/x-sketch"), false},
        {T::Acorn, L("Acorn 4"), L("acorn"), words("acorn"), words("application/x-acorn"), false},
    };
}

} // namespace

const std::vector<DocumentTypeRow>& documentTypeTable()
{
    static const std::vector<DocumentTypeRow> table = makeTable();
    return table;
}

const DocumentTypeRow& rowOfDocumentType(DocumentType type)
{
    return documentTypeTable().at(static_cast<std::size_t>(type));
}

} // namespace mosaro::importing
