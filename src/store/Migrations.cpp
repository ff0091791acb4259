#include "store/Migrations.h"

#include "base/Text.h"
#include "store/StoreFile.h"

#include <QUuid>
#include <SQLiteCpp/Transaction.h>

namespace mosaro::store {

namespace {

/// "MOSR": tells a store from any other SQLite file.
constexpr int kApplicationId = 0x4D4F5352;

constexpr auto kFirstTables = R"(
CREATE TABLE StoreInformation (key TEXT PRIMARY KEY NOT NULL, value TEXT NOT NULL) WITHOUT ROWID;

CREATE TABLE Collections (id INTEGER PRIMARY KEY AUTOINCREMENT,
    autoImport INTEGER, collectionID TEXT, collectionPID TEXT, dateCreated INTEGER, dateModified INTEGER,
    filterCondition INTEGER, filters BLOB, isAscending INTEGER, label INTEGER, sortKey INTEGER, title TEXT,
    type INTEGER, zoomValue REAL);
CREATE TABLE Tags (id INTEGER PRIMARY KEY AUTOINCREMENT,
    tagID TEXT, title TEXT, tagColor TEXT, isAscending INTEGER, sortKey INTEGER, zoomValue REAL);
CREATE TABLE Colors (id INTEGER PRIMARY KEY AUTOINCREMENT,
    colorID TEXT, colorType INTEGER, isLike INTEGER, isAscending INTEGER, sortKey INTEGER, zoomValue REAL);

CREATE TABLE Media (id INTEGER PRIMARY KEY AUTOINCREMENT,
    imageColorModel TEXT, imageDepth INTEGER, imageDPI REAL, imageHasAlpha INTEGER, imageHasFrames INTEGER,
    imageProfile TEXT, mediaCopyright TEXT, mediaDateCreated INTEGER, mediaDateImported INTEGER,
    mediaDateLastOpened INTEGER, mediaDateModified INTEGER, mediaDocumentType INTEGER, mediaFileSize INTEGER,
    mediaHeight REAL, mediaID TEXT, mediaKind INTEGER, mediaLabel INTEGER, mediaNotes TEXT, mediaOriginalPath TEXT,
    mediaPath TEXT, mediaPID TEXT, mediaRating INTEGER, mediaSoftware TEXT, mediaThumbPath TEXT, mediaTitle TEXT,
    mediaWeburl TEXT, mediaWidth REAL, pdfAuthor TEXT, pdfCreator TEXT, pdfProducer TEXT, pdfSubject TEXT,
    pdfTitle TEXT, pdfDateCreated INTEGER, pdfDateModified INTEGER, pdfPageCount INTEGER, pdfVersion TEXT,
    videoDuration REAL, videoFormat TEXT, mediaOtherInfo BLOB,
    collections INTEGER REFERENCES Collections (id) ON DELETE CASCADE);

CREATE TABLE MediaTagList (id INTEGER PRIMARY KEY AUTOINCREMENT,
    mediaID TEXT, tagID TEXT,
    media INTEGER REFERENCES Media (id) ON DELETE CASCADE,
    tags INTEGER REFERENCES Tags (id) ON DELETE CASCADE);
CREATE TABLE ColorList (id INTEGER PRIMARY KEY AUTOINCREMENT,
    colorID TEXT, colorType INTEGER, mediaID TEXT,
    colors INTEGER REFERENCES Colors (id) ON DELETE CASCADE,
    media INTEGER REFERENCES Media (id) ON DELETE CASCADE);
CREATE TABLE CollectionTagList (id INTEGER PRIMARY KEY AUTOINCREMENT,
    collectionID TEXT, tagID TEXT,
    collections INTEGER REFERENCES Collections (id) ON DELETE CASCADE,
    tags INTEGER REFERENCES Tags (id) ON DELETE CASCADE);
)";

// One for each order of a list, so that a whole library is put in order by reading along the index; one for
// each key that records are looked up by. The further columns spare reading the rows: the sum of sizes, the
// order of a search for titles.
constexpr auto kFirstIndexes = R"(
CREATE INDEX Collections_collectionID ON Collections (collectionID);
CREATE INDEX Tags_tagID ON Tags (tagID);
CREATE INDEX Tags_title ON Tags (title);
CREATE INDEX Colors_colorID ON Colors (colorID, colorType);

CREATE UNIQUE INDEX Media_mediaID ON Media (mediaID);
CREATE INDEX Media_mediaPID ON Media (mediaPID, mediaFileSize);
CREATE INDEX Media_mediaKind ON Media (mediaKind, mediaFileSize);
CREATE INDEX Media_collections ON Media (collections, mediaFileSize);

CREATE INDEX Media_mediaTitle ON Media (mediaTitle COLLATE FINDER, id, mediaDateImported, mediaFileSize);
CREATE INDEX Media_mediaFileSize ON Media (mediaFileSize);
CREATE INDEX Media_mediaRating ON Media (mediaRating);
CREATE INDEX Media_mediaWidth ON Media (mediaWidth);
CREATE INDEX Media_mediaHeight ON Media (mediaHeight);
CREATE INDEX Media_mediaDateCreated ON Media (mediaDateCreated);
CREATE INDEX Media_mediaDateModified ON Media (mediaDateModified);
CREATE INDEX Media_mediaDateImported ON Media (mediaDateImported, id, mediaFileSize);
CREATE INDEX Media_mediaDateLastOpened ON Media (mediaDateLastOpened);

CREATE INDEX MediaTagList_media ON MediaTagList (media);
CREATE INDEX MediaTagList_tags ON MediaTagList (tags, media);
CREATE INDEX MediaTagList_tagID ON MediaTagList (tagID, media);
CREATE INDEX MediaTagList_mediaID ON MediaTagList (mediaID, tagID);
CREATE INDEX ColorList_media ON ColorList (media);
CREATE INDEX ColorList_colors ON ColorList (colors, media);
CREATE INDEX ColorList_colorID ON ColorList (colorID, colorType, media);
CREATE INDEX CollectionTagList_collections ON CollectionTagList (collections);
CREATE INDEX CollectionTagList_tags ON CollectionTagList (tags);
)";

void makeFirstSchema(SQLite::Database& database)
{
    database.exec(kFirstTables);
    database.exec(kFirstIndexes);
    database.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
    SQLite::Statement insert(database, "INSERT INTO StoreInformation (key, value) VALUES ('storeID', ?)");
    insert.bind(1, QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper().toStdString());
    insert.exec();
}

/// No query follows these: links are found by the rows of either end. They took a good tenth of the file.
void dropUnusedIndexes(SQLite::Database& database)
{
    database.exec("DROP INDEX MediaTagList_mediaID; DROP INDEX ColorList_colorID;");
}

int pragma(SQLite::Database& database, const char* sql)
{
    return database.execAndGet(sql).getInt();
}

} // namespace

const std::vector<Migration>& currentMigrations()
{
    static const std::vector<Migration> kMigrations{{1, makeFirstSchema}, {2, dropUnusedIndexes}};
    return kMigrations;
}

base::Result<void> checkSchema(SQLite::Database& database, const QString& path)
{
    const int schema = pragma(database, "PRAGMA user_version");
    const bool isBlank = schema == 0 && pragma(database, "SELECT count(*) FROM sqlite_master") == 0;
    if (!isBlank && (schema < 1 || pragma(database, "PRAGMA application_id") != kApplicationId))
        return base::Failure{base::text("Failure.Store.NotAStore", path)};
    if (schema > currentMigrations().back().number)
        return base::Failure{base::text("Failure.Store.Newer", path)};
    return {};
}

base::Result<void> migrate(SQLite::Database& database, const QString& path, std::span<const Migration> steps)
{
    for (const Migration& step : steps) {
        int before = 0;
        try {
            before = pragma(database, "PRAGMA user_version");
            if (before >= step.number)
                continue;
            SQLite::Transaction transaction(database);
            step.run(database);
            database.exec("PRAGMA user_version = " + std::to_string(step.number));
            transaction.commit();
        } catch (const SQLite::Exception& error) {
            const base::Failure failure = storeFailure(error, path);
            if (before == 0) // A new store: there was nothing to bring up to date.
                return failure;
            return base::Failure{base::text("Failure.Store.Migration", path, failure.reason)};
        }
    }
    return {};
}

} // namespace mosaro::store
