#include "import/BrowserTables.h"

#include <QLatin1String>
#include <array>

namespace mosaro::importing {

namespace {

struct TypeRow {
    const char* badge;
    const char* sideFileSuffix;
    const char* application;
};

constexpr std::array<TypeRow, 26> kTypes{{
    {"PDF", "", ""},
    {"JPG", "", ""},
    {"JP2", "", ""},
    {"TIF", "", ""},
    {"PICT", "", ""},
    {"GIF", "", ""},
    {"PNG", "", ""},
    {"PICT", "", ""},
    {"ICNS", "", ""},
    {"BMP", "", ""},
    {"ICO", "", ""},
    {"RAW", "_raw.jpg", ""},
    {"SVG", "_svg.png", ""},
    {"TGA", "", ""},
    {"PSD", "", ""},
    {"AI", "_ai.png", ""},
    {"EPS", "_eps.png", ""},
    {"AffinityDesigner_icon", "_afdesign.png", "Affinity Designer"},
    {"AffinityPhoto_icon", "_afphoto.png", "Affinity Photo"},
    {"iDraw_icon", "_idraw.png", "iDraw"},
    {"Pixelmator_icon", "_pxm.png", "Pixelmator"},
    {"Sketch_icon", "_sketch.png", "Sketch"},
    {"Acorn_icon", "_acorn.png", "Acorn"},
    {"MOV", "", ""},
    {"M4V", "", ""},
    {"MP4", "", ""},
}};

constexpr std::array<const char*, 8> kLabels{"",      "RED",  "ORANGE", "YELLOW",
                                             "GREEN", "BLUE", "PURPLE", "GRAY"};

const TypeRow& typeRow(int documentType)
{
    static constexpr TypeRow kNone{"", "", ""};
    const bool known = documentType >= 0 && documentType < int(kTypes.size());
    return known ? kTypes[size_t(documentType)] : kNone;
}

} // namespace

QString documentBadge(int documentType)
{
    return QLatin1String(typeRow(documentType).badge);
}

QString labelBadge(int label)
{
    const bool known = label >= 0 && label < int(kLabels.size());
    return known ? QString(QLatin1String(kLabels[size_t(label)])) : QString();
}

QString sideFileSuffix(int documentType)
{
    return QLatin1String(typeRow(documentType).sideFileSuffix);
}

QString designApplication(int documentType)
{
    return QLatin1String(typeRow(documentType).application);
}

bool isDrawnBySideFile(int documentType)
{
    return !sideFileSuffix(documentType).isEmpty();
}

} // namespace mosaro::importing
