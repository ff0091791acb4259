#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

namespace mosaro::store {

/// Sort and zoom of one system collection. A value that the stored row lacks is not there.
struct SystemCollectionSettings {
    std::optional<bool> isAscending;
    std::optional<int> sortKey;
    std::optional<double> zoom;
};

/// The state record of a library: interface state that belongs to the library and not to the user. Kept whole
/// in memory, unknown keys included, and written only when the library closes. Each getter first creates its
/// key with the default when it is missing or of another type.
class LibraryState {
public:
    LibraryState() = default;
    explicit LibraryState(QVariantMap record) : m_record(std::move(record)) {}

    [[nodiscard]] bool isEmpty() const { return m_record.isEmpty(); }
    [[nodiscard]] const QVariantMap& record() const { return m_record; }

    QStringList expandedCollections();
    void addExpandedCollection(const QString& id);
    void removeExpandedCollection(const QString& id);

    QStringList lastSelectedCollections();
    void addLastSelectedCollection(const QString& id);
    void removeAllLastSelectedCollections();

    QStringList lastSelectedTags();
    void addLastSelectedTag(const QString& id);
    /// In place of all others, each of them named once.
    void setLastSelectedTags(const QStringList& ids);
    void removeAllLastSelectedTags();

    QByteArray lastSelectedColors();
    /// Positions in the colour grid, ascending; none stores empty data.
    void addLastSelectedColorIndex(const std::vector<int>& positions);
    [[nodiscard]] std::vector<int> lastSelectedColorPositions();

    QVariantMap lastSelectedMedia();
    void addLastSelectedMedia(const QList<QByteArray>& references, const QString& withCollectionID);
    void removeLastSelectedMedia(const QString& selectionKey);
    void removeAllLastSelectedMedia();

    QVariantList exportPresets();
    void saveExportPresets(const QVariantList& presets);
    void restoreExportPresets();

    QVariantMap systemCollections();
    [[nodiscard]] bool hasSystemCollection(const QString& number);
    [[nodiscard]] SystemCollectionSettings systemCollection(const QString& number);
    // Each changes one row in place; a row that is missing or lacks the keys is left alone.
    void setSystemCollectionSort(const QString& number, int sortKey, bool ascending);
    /// Stored in single precision, whatever the value.
    void setSystemCollectionZoom(const QString& number, double zoom);

    [[nodiscard]] static QVariantMap defaultLibraryXML();
    [[nodiscard]] static QVariantMap defaultSystemCollections();
    [[nodiscard]] static QVariantList imagePresets();

private:
    QVariantMap m_record;
};

} // namespace mosaro::store
