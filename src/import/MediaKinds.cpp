// The part of the classifier that knows kinds and labels: what a picture is for.
#include "base/Text.h"
#include "import/MediaClassification.h"

#include <QVariantMap>
#include <array>

namespace mosaro::importing {

namespace {

struct KindRow {
    MediaKind kind;
    const char* textKey;
};

constexpr std::array<KindRow, 12> kKinds = {{
    {MediaKind::Screen, "Lib.Screen"},
    {MediaKind::Phone, "Lib.Phone"},
    {MediaKind::Tablet, "Lib.Tablet"},
    {MediaKind::Web, "Lib.Web"},
    {MediaKind::Icon, "Lib.Icon"},
    {MediaKind::Button, "Lib.Button"},
    {MediaKind::Interface, "Lib.Interface"},
    {MediaKind::AnimatedGif, "Lib.Animated.GIF"},
    {MediaKind::Wallpaper, "Lib.Wallpaper"},
    {MediaKind::Movie, "Lib.Movie"},
    {MediaKind::Pdf, "Lib.PDF"},
    {MediaKind::Other, "Lib.Other"},
}};

QString sizeText(QSize size)
{
    return QStringLiteral("{%1, %2}").arg(size.width()).arg(size.height());
}

QStringList sizeTexts(std::initializer_list<QSize> sizes)
{
    QStringList texts;
    for (const QSize size : sizes)
        texts.append(sizeText(size));
    return texts;
}

// Both directions of the map between an item's label and a file's label number.
constexpr std::array<int, 8> kFileLabelOfMediaLabel = {0, 6, 7, 5, 2, 4, 3, 1};

} // namespace

QString MediaClassification::mediaKindType(int number)
{
    for (const KindRow& row : kKinds) {
        if (static_cast<int>(row.kind) == number)
            return base::text(row.textKey);
    }
    return {};
}

QVariantList MediaClassification::mediaKindList()
{
    QVariantList list;
    for (const KindRow& row : kKinds) {
        if (row.kind == MediaKind::Movie)
            continue;
        list.append(QVariantMap{{QStringLiteral("title"), base::text(row.textKey)},
                                {QStringLiteral("tag"), static_cast<int>(row.kind)}});
    }
    return list;
}

MediaKind MediaClassification::kindOf(DocumentType type, QSize size)
{
    if (type == DocumentType::Pdf)
        return MediaKind::Pdf;
    if (type == DocumentType::Ico || type == DocumentType::Icns)
        return MediaKind::Icon;
    return kindOfSize(size);
}

MediaKind MediaClassification::kindOfSize(QSize size)
{
    const QString text = sizeText(size);
    const bool phone = phoneResolutions().contains(text);
    const bool tablet = tabletResolutions().contains(text);
    const bool wallpaper = wallpaperResolutions().contains(text);
    if (wallpaper && !phone && !tablet)
        return MediaKind::Wallpaper;
    if (tablet && !phone)
        return MediaKind::Tablet;
    return phone ? MediaKind::Phone : MediaKind::Other;
}

const QStringList& MediaClassification::phoneResolutions()
{
    static const QStringList table = sizeTexts({
        {320, 480},   {480, 320},   {640, 960},   {960, 640},   {640, 1136},  {1136, 640},  {750, 1334},
        {1334, 750},  {1125, 2001}, {2001, 1125}, {1242, 2208}, {2208, 1242}, {1440, 1440}, {320, 240},
        {1080, 1920}, {1920, 1080}, {720, 1280},  {1280, 720},  {540, 960},   {960, 540},   {480, 854},
        {854, 480},   {480, 800},   {800, 480},   {768, 1280},  {1280, 768},  {480, 800},   {800, 480},
    });
    return table;
}

const QStringList& MediaClassification::tabletResolutions()
{
    static const QStringList table =
        sizeTexts({{1024, 768}, {768, 1024}, {2048, 1536}, {1536, 2048}, {1280, 800}, {800, 1280}});
    return table;
}

// The row of 1600 by 2569 is as libraries in use know it.
const QStringList& MediaClassification::wallpaperResolutions()
{
    static const QStringList table = sizeTexts({
        {1024, 768},  {1280, 960},  {1400, 1050}, {1600, 1200}, {3840, 2160}, {3200, 1800}, {2880, 1620},
        {2560, 1440}, {1920, 1080}, {1600, 900},  {1280, 720},  {3840, 2400}, {3360, 2100}, {2880, 1800},
        {2560, 1600}, {1920, 1200}, {1680, 1050}, {1440, 900},  {1280, 800},  {1024, 600},  {3440, 1440},
        {2560, 1440}, {1600, 2569}, {1200, 1920}, {1080, 1920}, {2048, 2048},
    });
    return table;
}

int fileLabelFromMediaLabel(int mediaLabel)
{
    if (mediaLabel < 0 || mediaLabel >= static_cast<int>(kFileLabelOfMediaLabel.size()))
        return 0;
    return kFileLabelOfMediaLabel.at(static_cast<std::size_t>(mediaLabel));
}

int mediaLabelFromFileLabel(int fileLabelNumber)
{
    for (std::size_t label = 0; label < kFileLabelOfMediaLabel.size(); ++label) {
        if (kFileLabelOfMediaLabel.at(label) == fileLabelNumber)
            return static_cast<int>(label);
    }
    return 0;
}

} // namespace mosaro::importing
