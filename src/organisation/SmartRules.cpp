#include "organisation/SmartRules.h"

#include "base/Text.h"

#include <algorithm>

namespace mosaro::organisation {

namespace {

using L = QLatin1String;
using F = SmartRuleFamily;

// Their numbers and order are stored and shown as they are.
constexpr SmartRuleKind kKinds[] = {
    {0, F::String, L("mediaTitle"), "Smart.Image.Title"},
    {2, F::FileType, L("mediaDocumentType"), "Smart.Image.Type"},
    {21, F::Rating, L("mediaRating"), "Smart.Image.Ratings"},
    {16, F::Label, L("mediaLabel"), "Smart.Image.Label"},
    {3, F::FileSize, L("mediaFileSize"), "Smart.Image.File.Size"},
    {20, F::Tag, L(), "Smart.Image.Tags"},
    {4, F::Date, L("mediaDateCreated"), "Smart.Image.Creation.Date"},
    {5, F::Date, L("mediaDateModified"), "Smart.Image.Modification.Date"},
    {6, F::Date, L("mediaDateImported"), "Smart.Image.Imported.Date"},
    {7, F::String, L("mediaWeburl"), "Smart.Image.Capture.URL"},
    {8, F::Number, L("mediaWidth"), "Smart.Image.Width"},
    {9, F::Number, L("mediaHeight"), "Smart.Image.Height"},
    {10, F::Number, L("imageDPI"), "Smart.Image.DPI"},
    {12, F::String, L("imageColorModel"), "Smart.Image.Color.Model"},
    {13, F::String, L("imageProfile"), "Smart.Image.ColorSync.Profile"},
    {18, F::Boolean, L("imageHasAlpha"), "Smart.Image.Alpha.Channel"},
};

constexpr SmartRuleCondition kTextConditions[] = {{0, "Smart.Matches"},
                                                  {1, "Smart.Contains"},
                                                  {2, "Smart.Begins.With"},
                                                  {3, "Smart.Ends.With"},
                                                  {4, "Smart.Is"}};
constexpr SmartRuleCondition kNumberConditions[] = {
    {0, "Smart.Equals"}, {1, "Smart.Is.Greater.Than"}, {2, "Smart.Is.Less.Than"}};
constexpr SmartRuleCondition kTagConditions[] = {{1, "Smart.Is"}, {0, "Smart.Is.Not"}};
constexpr SmartRuleCondition kDateConditions[] = {
    {0, "Smart.Is"}, {1, "Smart.Is.Before"}, {2, "Smart.Is.After"}, {3, "Smart.Is.In.The.Range"}};

constexpr SmartRuleUnit kUnits[] = {{1'000, L("KB")}, {1'000'000, L("MB")}, {1'000'000'000, L("GB")}};

struct FileType {
    const char* title;
    const char* extension;
};
constexpr FileType kFileTypes[] = {
    {"GIF", "gif"},
    {"JPEG", "jpg, jpeg"},
    {"JPEG 2000", "jp2"},
    {"ICNS", "icns"},
    {"TIFF", "tif, tiff"},
    {"BMP", "bmp"},
    {"RAW Image", "raw"},
    {"Photoshop", "psd"},
    {"ICO", "ico"},
    {"Illustrator (AI)", "ai"},
    {"EPS", "eps"},
    {"PDF", "pdf"},
    {"SVG", "svg"},
    {"PNG", "png"},
    {"TGA", "tga"},
    {"Affinity Designer", "afdesign"},
    {"Affinity Photo", "afphoto"},
    {"iDraw", "idraw"},
    {"Pixelmator", "pxm"},
    {"Sketch 3", "sketch"},
    {"Acorn 4", "acorn"},
};

} // namespace

std::span<const SmartRuleKind> smartRuleKinds()
{
    return kKinds;
}

const SmartRuleKind* smartRuleKind(qint64 type)
{
    const auto* const found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                           [type](const SmartRuleKind& kind) { return kind.type == type; });
    return found == std::end(kKinds) ? nullptr : found;
}

SmartRuleFamily smartRuleRowFamily(qint64 type)
{
    switch (type) {
    case 1:
    case 14:
    case 15:
    case 19:
        return F::String;
    case 11:
        return F::Number;
    case 17:
        return F::Color;
    default:
        const SmartRuleKind* kind = smartRuleKind(type);
        return kind ? kind->family : F::None;
    }
}

std::span<const SmartRuleCondition> smartRuleConditions(SmartRuleFamily family)
{
    switch (family) {
    case F::String:
        return kTextConditions;
    case F::FileSize:
    case F::Number:
    case F::Rating:
        return kNumberConditions;
    case F::Tag:
        return kTagConditions;
    case F::Date:
        return kDateConditions;
    default:
        return {};
    }
}

std::span<const SmartRuleUnit> smartRuleUnits()
{
    return kUnits;
}

QVariantList smartRuleKeys()
{
    QVariantList menu;
    for (const SmartRuleKind& kind : kKinds) {
        menu.append(QVariantMap{{SMART_RULE_TITLE, base::text(kind.titleKey)}, {SMART_RULE_TYPE, kind.type}});
    }
    return menu;
}

QVariantList availableMediaInSmartCollection()
{
    QVariantList list;
    for (const FileType& type : kFileTypes) {
        list.append(QVariantMap{{IMAGE_TITLE, QString::fromLatin1(type.title)},
                                {IMAGE_EXTENSION, QString::fromLatin1(type.extension)}});
    }
    return list;
}

bool isValidSmartCollection(const QVariantMap& result)
{
    return result.value(SMART_COLLECTION_TITLE).isValid() &&
           result.value(SMART_COLLECTION_MATCH_CONDITION).isValid() &&
           !result.value(SMART_COLLECTION_RULES).toList().isEmpty();
}

// A property list counts a date's seconds from 2001 in 32 bits, either way.
QDate firstSmartRuleDay()
{
    return {1933, 1, 1};
}

QDate lastSmartRuleDay()
{
    return {2068, 12, 31};
}

} // namespace mosaro::organisation
