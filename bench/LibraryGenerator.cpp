#include "bench/LibraryGenerator.h"

#include "bench/LibraryContents.h"
#include "store/LibraryPackage.h"
#include "store/StoreFile.h"

#include <QDir>
#include <QFile>

namespace mosaro::bench {

using namespace store;

namespace {

constexpr int kItemsPerTransaction = 50000;
constexpr int kItemsPerCollection = 400;
constexpr int kTags = 60;
constexpr int kLeastColorsPerRole = 300;
constexpr int kItemsPerColor = 20; ///< Of one role, in a large library.

/// What an item is linked with: rows and keys of what was made before it.
struct Keyed {
    qint64 row;
    QString key;
};

/// Rows go in much faster without the indexes, which are built at the end.
QStringList takeIndexes(StoreFile& file)
{
    QStringList makers;
    QStringList names;
    {
        auto rows =
            file.statement("SELECT name, sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL");
        while (rows->executeStep()) {
            names.append(QString::fromStdString(rows->getColumn(0).getString()));
            makers.append(QString::fromStdString(rows->getColumn(1).getString()));
        }
    }
    for (const QString& name : std::as_const(names))
        file.database().exec("DROP INDEX " + name.toStdString());
    return makers;
}

void makeIndexes(StoreFile& file, const QStringList& makers)
{
    WriteTransaction transaction(file);
    for (const QString& sql : makers)
        file.database().exec(sql.toStdString());
    transaction.commit();
}

class Generator {
public:
    Generator(StoreFile& file, const LibraryPackage& package, unsigned seed, bool withPreviews)
        : m_file(file), m_package(package), m_contents(seed), m_withPreviews(withPreviews)
    {
    }

    void run(int items)
    {
        {
            WriteTransaction transaction(m_file);
            addCollections(std::max(1, items / kItemsPerCollection));
            addTags();
            addColors(std::max(kLeastColorsPerRole, items / kItemsPerColor));
            transaction.commit();
        }
        for (int done = 0; done < items; done += kItemsPerTransaction) {
            WriteTransaction transaction(m_file);
            for (int i = done; i < std::min(items, done + kItemsPerTransaction); ++i)
                addItem(i);
            transaction.commit();
        }
    }

private:
    qint64 insert(const QByteArray& sql, const QVariantList& values)
    {
        auto statement = m_file.statement(sql);
        int position = 0;
        for (const QVariant& value : values) {
            ++position;
            if (value.typeId() == QMetaType::QString)
                statement->bind(position, value.toString().toStdString());
            else if (value.typeId() == QMetaType::Double)
                statement->bind(position, value.toDouble());
            else
                statement->bind(position, static_cast<int64_t>(value.toLongLong()));
        }
        statement->exec();
        return m_file.database().getLastInsertRowid();
    }

    void addCollections(int count)
    {
        for (int i = 0; i < count; ++i) {
            const QString id = m_contents.identifier();
            const qint64 date = m_contents.date();
            const qint64 row =
                insert("INSERT INTO Collections (autoImport, collectionID, collectionPID, dateCreated, "
                       "dateModified, filterCondition, isAscending, label, sortKey, title, type, "
                       "zoomValue) VALUES (0, ?, '', ?, ?, 0, 0, ?, 7, ?, 10000, 0.4)",
                       {id, date, date, m_contents.below(8), m_contents.title(i)});
            m_collections.push_back({row, id});
        }
    }

    void addTags()
    {
        for (int i = 0; i < kTags; ++i) {
            const QString id = m_contents.identifier();
            const qint64 row =
                insert("INSERT INTO Tags (tagID, title, tagColor, isAscending, sortKey, zoomValue) "
                       "VALUES (?, ?, '', 0, 7, 0.4)",
                       {id, m_contents.tagTitle(i)});
            m_tags.push_back({row, id});
        }
    }

    void addColors(int colorsPerRole)
    {
        for (int role = 0; role < 4; ++role) {
            for (int i = 0; i < colorsPerRole; ++i) {
                const QString id = m_contents.colorID();
                const qint64 row =
                    insert("INSERT INTO Colors (colorID, colorType, isLike, isAscending, sortKey, "
                           "zoomValue) VALUES (?, ?, ?, 0, 7, 0.4)",
                           {id, role, m_contents.below(20) == 0 ? 1 : 0});
                m_colors[role].push_back({row, id});
            }
        }
    }

    void addItem(int number)
    {
        const Item item = m_contents.item(number);
        const Keyed& owner = m_collections[m_contents.index(m_collections.size())];
        const QString folder =
            LibraryPackage::itemFolder(QDateTime::fromMSecsSinceEpoch(item.imported).date(), item.id);
        const QString path = folder + QStringLiteral("/Originals/") + item.fileName;
        const QString preview = folder + QStringLiteral("/Preivew/preview.png");
        const qint64 row = insert(
            "INSERT INTO Media (imageColorModel, imageDepth, imageDPI, imageHasAlpha, imageProfile, "
            "mediaCopyright, "
            "mediaDateCreated, mediaDateImported, mediaDateLastOpened, mediaDateModified, mediaDocumentType, "
            "mediaFileSize, mediaHeight, mediaID, mediaKind, mediaLabel, mediaNotes, mediaOriginalPath, "
            "mediaPath, "
            "mediaPID, mediaRating, mediaThumbPath, mediaTitle, mediaWidth, collections) VALUES "
            "('RGB', 8, 72.0, ?, 'sRGB IEC61966-2.1', '', ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
            "?, ?)",
            {item.hasAlpha,
             item.created,
             item.imported,
             item.imported,
             item.modified,
             item.documentType,
             item.fileSize,
             item.height,
             item.id,
             item.kind,
             item.label,
             item.notes,
             QStringLiteral("/home/designer/Pictures/") + item.fileName,
             path,
             owner.key,
             item.rating,
             preview,
             item.title,
             item.width,
             owner.row});
        addLinks(row, item.id);
        if (m_withPreviews)
            writeFiles(path, preview);
    }

    void addLinks(qint64 row, const QString& id)
    {
        const int first = m_contents.below(kTags);
        const int count = m_contents.below(4);
        for (int i = 0; i < count; ++i) {
            const Keyed& tag = m_tags[static_cast<size_t>((first + i * 7) % kTags)];
            insert("INSERT INTO MediaTagList (mediaID, tagID, media, tags) VALUES (?, ?, ?, ?)",
                   {id, tag.key, row, tag.row});
        }
        for (int role = 0; role < 4; ++role) {
            const Keyed& color = m_colors[role][m_contents.index(m_colors[role].size())];
            insert(
                "INSERT INTO ColorList (colorID, colorType, mediaID, colors, media) VALUES (?, ?, ?, ?, ?)",
                {color.key, role, id, color.row, row});
        }
    }

    void writeFiles(const QString& path, const QString& preview)
    {
        for (const QString& name : {path, preview}) {
            const QString file = m_package.masterDirPath() + name;
            QDir().mkpath(file.section(QLatin1Char('/'), 0, -2));
            QFile target(file);
            if (target.open(QIODevice::WriteOnly))
                target.write(m_contents.previewBytes(name == preview));
        }
    }

    StoreFile& m_file;
    const LibraryPackage& m_package;
    LibraryContents m_contents;
    bool m_withPreviews;
    std::vector<Keyed> m_collections;
    std::vector<Keyed> m_tags;
    std::vector<Keyed> m_colors[4];
};

} // namespace

base::Result<void> generateLibrary(const QString& packagePath, int items, unsigned seed, bool withPreviews)
{
    const LibraryPackage package(packagePath);
    if (QFile::exists(packagePath) || !QDir().mkpath(package.masterDirPath()))
        return base::Failure{QStringLiteral("cannot make a library at ") + packagePath};
    auto file = StoreFile::open(package.dbPath());
    if (!file)
        return file.failure();
    try {
        file.value()->database().exec("PRAGMA cache_size = -262144; PRAGMA synchronous = OFF;"
                                      "PRAGMA foreign_keys = OFF;");
        const QStringList indexes = takeIndexes(*file.value());
        Generator(*file.value(), package, seed, withPreviews).run(items);
        makeIndexes(*file.value(), indexes);
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, package.dbPath());
    }
    return package.writeVersionRecord({{QStringLiteral("Version"), QStringLiteral("1.0")},
                                       {QStringLiteral("Copy items to library"), true}});
}

} // namespace mosaro::bench
