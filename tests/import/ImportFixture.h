#pragma once

#include "base/Text.h"
#include "import/ImportRun.h"
#include "support/FakePlatform.h"
#include "support/TemporaryLibrary.h"

#include <QDirIterator>
#include <QSignalSpy>
#include <QTest>

namespace mosaro::test {

/// What an analysis of any file gives here: a preview that names the file, and one colour.
inline importing::AnalysisResult sampleAnalysis(const importing::AnalysisRequest& request)
{
    importing::AnalysisResult result;
    result.type = request.type;
    result.kind = request.kind == importing::MediaKind::Unset ? importing::MediaKind::Other : request.kind;
    result.preview = "preview of " + QFileInfo(request.path).fileName().toUtf8();
    result.metadata.width = 640;
    result.metadata.height = 480;
    result.colors.push_back({{0.5F, 0.25F, 1.0F, 1.0F}, 0.9F});
    return result;
}

/// A library with one collection, a folder of files, and an analysis that a test may replace.
class ImportFixture {
public:
    TemporaryLibrary library;
    FakeTypes types;
    FakeThumbnailers thumbnailers;
    FakeFileIndex index;
    FakeAliases aliases;
    importing::MediaClassification classification{types, thumbnailers};
    std::function<importing::AnalysisResult(const importing::AnalysisRequest&)> analyse = sampleAnalysis;
    std::function<QString(const QString&)> askForFolder;
    int parallel = 4;
    std::shared_ptr<store::Collections> collection = library.addCollection(QStringLiteral("Target"));

    QString makeFile(const QString& name, const QByteArray& bytes = "bytes")
    {
        const QString path = library.folder() + u'/' + name;
        writeFile(path, bytes);
        return path;
    }

    /// "01.png", "02.png" and so on.
    QStringList makeFiles(int count)
    {
        QStringList paths;
        for (int number = 1; number <= count; ++number)
            paths.append(makeFile(QStringLiteral("%1.png").arg(number, 2, 10, QLatin1Char('0'))));
        return paths;
    }

    [[nodiscard]] importing::ImportEnvironment environment()
    {
        return {.context = library.context(),
                .package = library.package(),
                .classification = classification,
                .aliases = aliases,
                .fileIndex = index,
                .bookmarks = library.bookmarks(),
                .askForFolder = askForFolder,
                .parallel = parallel,
                .analyse = analyse};
    }

    [[nodiscard]] std::unique_ptr<importing::ImportRun> makeRun(bool copyMode = true)
    {
        return std::make_unique<importing::ImportRun>(environment(), collection, copyMode);
    }

    /// A whole run.
    importing::ImportReport import(std::vector<importing::ImportItem> items, bool copyMode = true)
    {
        const auto run = makeRun(copyMode);
        return finish(*run, std::move(items));
    }
    importing::ImportReport import(const QStringList& paths, bool copyMode = true)
    {
        return import(importing::ImportItem::fromPaths(paths), copyMode);
    }

    /// The rest of a run; `meanwhile` is done when it has started.
    static importing::ImportReport finish(
        importing::ImportRun& run, std::vector<importing::ImportItem> items,
        const std::function<void()>& meanwhile = [] {})
    {
        importing::ImportReport report;
        QSignalSpy finished(&run, &importing::ImportRun::finished);
        QObject::connect(&run, &importing::ImportRun::finished, &run,
                         [&report](const importing::ImportReport& result) { report = result; });
        run.start(std::move(items));
        meanwhile();
        if (!finished.wait(30'000))
            qFatal("the import does not end");
        return report;
    }

    [[nodiscard]] std::shared_ptr<store::Media> media(const QString& mediaID)
    {
        return library.context().first<store::Media>(
            store::Predicate::compare(QLatin1String("mediaID"), store::Comparison::Equal, mediaID));
    }

    [[nodiscard]] QStringList titles(const QStringList& mediaIDs)
    {
        QStringList titles;
        for (const QString& mediaID : mediaIDs) {
            const auto record = media(mediaID);
            titles.append(record ? record->mediaTitle() : QStringLiteral("(no record)"));
        }
        return titles;
    }

    [[nodiscard]] qint64 recordCount(const store::EntityInfo& entity = store::Media::info())
    {
        return library.context().count(entity, store::Predicate::all()).value();
    }

    /// All item folders of the library, staged ones too.
    [[nodiscard]] QStringList itemFolders() const
    {
        QStringList folders;
        QDirIterator walk(masters(), {QStringLiteral("*.mritem")}, QDir::Dirs | QDir::Hidden,
                          QDirIterator::Subdirectories);
        while (walk.hasNext())
            folders.append(walk.next());
        return folders;
    }

    [[nodiscard]] bool hasStagingDirectory() const
    {
        return QFileInfo::exists(library.package().stagingDirPath());
    }
    /// The library holds so many items, whole ones, and nothing is under way.
    void expectItems(qint64 count)
    {
        QCOMPARE(recordCount(), count);
        QCOMPARE(itemFolders().size(), count);
        QVERIFY(!hasStagingDirectory());
    }
    [[nodiscard]] QString masters() const { return library.package().masterDirPath(); }

    /// From now on an analysis gives that, changed so.
    void changeAnalysis(const std::function<void(importing::AnalysisResult&)>& change)
    {
        analyse = [change](const importing::AnalysisRequest& request) {
            importing::AnalysisResult result = sampleAnalysis(request);
            change(result);
            return result;
        };
    }
};

} // namespace mosaro::test
