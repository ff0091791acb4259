#include "store/LibraryState.h"

#include "base/PropertyList.h"

namespace mosaro::store {

namespace {

const QString kSystemCollections = QStringLiteral("System Collections");
const QString kExpandedCollections = QStringLiteral("Expanded Collections");
const QString kLastSelectedCollections = QStringLiteral("Last Selected Collections");
const QString kLastSelectedTags = QStringLiteral("Last Selected Tags");
const QString kLastSelectedColors = QStringLiteral("Last Selected Colors");
const QString kLastSelectedMedia = QStringLiteral("Last Selected Media");
const QString kLastSelectedItems = QStringLiteral("Last Selected Items");
const QString kExportPresets = QStringLiteral("Export Presets");

const QString kSortAscending = QStringLiteral("LIB_SORT_AS_ASCENDING");
const QString kSortValue = QStringLiteral("LIB_SORT_VALUE");
const QString kZoomValue = QStringLiteral("LIB_ZOOM_VALUE");

/// The value of a key, made with its default when it is missing or of another type.
QVariant& lazyValue(QVariantMap& record, const QString& key, const QVariant& standard)
{
    QVariant& value = record[key];
    if (value.typeId() == QMetaType::QStringList)
        value = value.toList(); // What a property list would give.
    if (value.metaType() != standard.metaType())
        value = standard;
    return value;
}

QStringList lazyTexts(QVariantMap& record, const QString& key)
{
    return lazyValue(record, key, QVariantList()).toStringList();
}

void addText(QVariantMap& record, const QString& key, const QString& text)
{
    QVariantList texts = lazyValue(record, key, QVariantList()).toList();
    if (text.isEmpty() || texts.contains(text))
        return;
    texts.append(text);
    record.insert(key, texts);
}

QVariantMap systemSettings()
{
    return {{kSortAscending, false}, {kSortValue, 7}, {kZoomValue, 0.4}};
}

QVariantMap preset(int format, double quality, int sizeType)
{
    return {{QStringLiteral("PRESET_FORMAT"), format},
            {QStringLiteral("PRESET_FORMAT_QUALITY"), quality},
            {QStringLiteral("PRESET_SIZE_TYPE"), sizeType},
            {QStringLiteral("PRESET_SIZE_WIDTH"), 1024.0},
            {QStringLiteral("PRESET_SIZE_HEIGHT"), 1024.0},
            {QStringLiteral("PRESET_SIZE_SCALE"), 0.5},
            {QStringLiteral("PRESET_FILENAME_PREFIX"), QString()},
            {QStringLiteral("PRESET_FILENAME_SUFFIX"), QString()},
            {QStringLiteral("PRESET_IS_USED"), true}};
}

} // namespace

QStringList LibraryState::expandedCollections()
{
    return lazyTexts(m_record, kExpandedCollections);
}

void LibraryState::addExpandedCollection(const QString& id)
{
    addText(m_record, kExpandedCollections, id);
}

void LibraryState::removeExpandedCollection(const QString& id)
{
    QVariantList texts = lazyValue(m_record, kExpandedCollections, QVariantList()).toList();
    texts.removeAll(id);
    m_record.insert(kExpandedCollections, texts);
}

QStringList LibraryState::lastSelectedCollections()
{
    return lazyTexts(m_record, kLastSelectedCollections);
}

void LibraryState::addLastSelectedCollection(const QString& id)
{
    addText(m_record, kLastSelectedCollections, id);
}

void LibraryState::removeAllLastSelectedCollections()
{
    m_record.insert(kLastSelectedCollections, QVariantList());
}

QStringList LibraryState::lastSelectedTags()
{
    return lazyTexts(m_record, kLastSelectedTags);
}

void LibraryState::addLastSelectedTag(const QString& id)
{
    addText(m_record, kLastSelectedTags, id);
}

void LibraryState::setLastSelectedTags(const QStringList& ids)
{
    m_record.insert(kLastSelectedTags, QVariantList(ids.begin(), ids.end()));
}

void LibraryState::removeAllLastSelectedTags()
{
    m_record.insert(kLastSelectedTags, QVariantList());
}

QByteArray LibraryState::lastSelectedColors()
{
    return lazyValue(m_record, kLastSelectedColors, QByteArray()).toByteArray();
}

void LibraryState::addLastSelectedColorIndex(const std::vector<int>& positions)
{
    QVariantList list;
    for (const int position : positions)
        list.append(static_cast<qlonglong>(position));
    QByteArray data;
    if (!list.isEmpty()) {
        if (const auto archive = base::writePropertyList(list, base::PropertyListFormat::Binary))
            data = archive.value();
    }
    m_record.insert(kLastSelectedColors, data);
}

std::vector<int> LibraryState::lastSelectedColorPositions()
{
    std::vector<int> positions;
    const QByteArray data = lastSelectedColors();
    if (data.isEmpty())
        return positions;
    const auto archive = base::readPropertyList(data);
    const QVariantList list = archive ? archive.value().toList() : QVariantList();
    for (const QVariant& entry : list) {
        bool isNumber = false;
        const int position = entry.toInt(&isNumber);
        if (isNumber && position >= 0)
            positions.push_back(position);
    }
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    return positions;
}

QVariantMap LibraryState::lastSelectedMedia()
{
    return lazyValue(m_record, kLastSelectedMedia, QVariantMap()).toMap();
}

void LibraryState::addLastSelectedMedia(const QList<QByteArray>& references, const QString& withCollectionID)
{
    if (references.isEmpty() || withCollectionID.isEmpty())
        return;
    const QVariantList list(references.begin(), references.end());
    const auto archive = base::writePropertyList(list, base::PropertyListFormat::Binary);
    if (!archive)
        return;
    QVariantMap selections = lastSelectedMedia();
    selections.insert(withCollectionID, QVariantMap{{kLastSelectedItems, archive.value()}});
    m_record.insert(kLastSelectedMedia, selections);
}

void LibraryState::removeLastSelectedMedia(const QString& selectionKey)
{
    QVariantMap selections = lastSelectedMedia();
    selections.remove(selectionKey);
    m_record.insert(kLastSelectedMedia, selections);
}

void LibraryState::removeAllLastSelectedMedia()
{
    m_record.insert(kLastSelectedMedia, QVariantMap());
}

QVariantList LibraryState::exportPresets()
{
    return lazyValue(m_record, kExportPresets, imagePresets()).toList();
}

void LibraryState::saveExportPresets(const QVariantList& presets)
{
    m_record.insert(kExportPresets, presets);
}

void LibraryState::restoreExportPresets()
{
    m_record.insert(kExportPresets, imagePresets());
}

QVariantMap LibraryState::systemCollections()
{
    return lazyValue(m_record, kSystemCollections, defaultSystemCollections()).toMap();
}

bool LibraryState::hasSystemCollection(const QString& number)
{
    return systemCollections().contains(number);
}

SystemCollectionSettings LibraryState::systemCollection(const QString& number)
{
    const QVariantMap row = systemCollections().value(number).toMap();
    SystemCollectionSettings settings;
    if (row.contains(kSortAscending))
        settings.isAscending = row.value(kSortAscending).toBool();
    bool isNumber = false;
    if (const int key = row.value(kSortValue).toInt(&isNumber); isNumber)
        settings.sortKey = key;
    if (const double zoom = row.value(kZoomValue).toDouble(&isNumber); isNumber)
        settings.zoom = zoom;
    return settings;
}

void LibraryState::setSystemCollectionSort(const QString& number, int sortKey, bool ascending)
{
    QVariantMap rows = systemCollections();
    QVariantMap row = rows.value(number).toMap();
    if (!row.contains(kSortAscending) || !row.contains(kSortValue))
        return;
    row.insert(kSortAscending, ascending);
    row.insert(kSortValue, sortKey);
    rows.insert(number, row);
    m_record.insert(kSystemCollections, rows);
}

void LibraryState::setSystemCollectionZoom(const QString& number, double zoom)
{
    QVariantMap rows = systemCollections();
    QVariantMap row = rows.value(number).toMap();
    if (!row.contains(kZoomValue))
        return;
    row.insert(kZoomValue, static_cast<double>(static_cast<float>(zoom)));
    rows.insert(number, row);
    m_record.insert(kSystemCollections, rows);
}

QVariantMap LibraryState::defaultLibraryXML()
{
    return {{kSystemCollections, defaultSystemCollections()},
            {kExpandedCollections, QVariantList()},
            {kLastSelectedCollections, QVariantList()},
            {kLastSelectedTags, QVariantList()},
            {kLastSelectedColors, QByteArray()},
            {kLastSelectedMedia, QVariantMap()},
            {kExportPresets, imagePresets()}};
}

QVariantMap LibraryState::defaultSystemCollections()
{
    QVariantMap rows;
    for (const int number : {1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14})
        rows.insert(QString::number(number), systemSettings());
    return rows;
}

QVariantList LibraryState::imagePresets()
{
    return {preset(0, 1.0, 0), preset(1, 0.8, 0), preset(1, 0.8, 1), preset(1, 0.8, 2),
            preset(2, 1.0, 0), preset(2, 1.0, 1), preset(2, 1.0, 2)};
}

} // namespace mosaro::store
