// import: files into a collection of the library, by the run that the application uses too.
#include "base/Text.h"
#include "ctl/Command.h"
#include "ctl/ItemSelection.h"
#include "import/ImportRun.h"
#include "import/RenderableDocuments.h"
#include "organisation/CollectionCommands.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace mosaro::ctl {

using base::Failure;
using base::Result;
using base::text;
using importing::ImportItem;
using importing::ImportReport;

namespace {

using CollectionPointer = std::shared_ptr<store::Collections>;

/// The collection of a title, made at the top level when there is none.
Result<CollectionPointer> findOrMakeCollection(store::StoreContext& context, const QString& title)
{
    if (const auto found = collectionsOfTitle(context, title)) {
        if (found.value().size() > 1) {
            return Failure{text("Failure.Ctl.ManyCollections", title)};
        }
        return found.value().front();
    }
    if (!organisation::CollectionCommands::isAcceptableTitle(title)) {
        return Failure{text("Failure.Ctl.CollectionTitle")};
    }
    organisation::NewCollection description;
    description.title = title;
    const auto made = organisation::CollectionCommands(context).addItem(description, nullptr);
    if (!made) {
        return made.failure();
    }
    return context.first<store::Collections>(
        store::Predicate::compare(QLatin1String("collectionID"), store::Comparison::Equal, made.value()));
}

std::vector<ImportItem> itemsOf(const QCommandLineParser& line)
{
    std::vector<ImportItem> items;
    const QStringList paths = line.positionalArguments();
    const auto kind = kindFromText(line.value(QStringLiteral("kind")));
    for (const QString& path : paths) {
        const QString absolute = QFileInfo(path).absoluteFilePath();
        items.push_back(kind ? ImportItem{absolute, {}, static_cast<importing::MediaKind>(*kind), true}
                             : ImportItem::fromPath(absolute));
    }
    return items;
}

bool copies(Session& session, const QCommandLineParser& line)
{
    const QVariant mode =
        session.library().package().versionRecord().value(QStringLiteral("Copy items to library"));
    return !line.isSet(QStringLiteral("reference")) && (!mode.isValid() || mode.toBool());
}

/// Runs to the end, or until the user interrupts.
ImportReport runImport(Session& session, const CollectionPointer& collection, bool copyMode,
                       std::vector<ImportItem> items)
{
    const platform::Platform& platform = session.environment().platform;
    const importing::RenderableDocuments renderable(*platform.thumbnailers);
    const importing::MediaClassification classification(*platform.types, renderable);
    importing::ImportRun run({.context = session.context(),
                              .package = session.library().package(),
                              .classification = classification,
                              .aliases = *platform.aliases,
                              .fileIndex = *platform.fileIndex,
                              .bookmarks = *platform.bookmarks,
                              // Who names a file on the command line has granted its folder.
                              .askForFolder = [](const QString& folder) { return folder; },
                              .parallel = 0,
                              .analyse = session.environment().analyse},
                             collection, copyMode);
    ImportReport report;
    QEventLoop loop;
    QObject::connect(&run, &importing::ImportRun::finished, &loop, [&](const ImportReport& result) {
        report = result;
        loop.quit();
    });
    QTextStream& err = session.environment().err;
    if (session.environment().showsProgress) {
        QObject::connect(&run, &importing::ImportRun::progressed, &loop,
                         [&err](const importing::ImportProgress& progress) {
                             err << '\r' << progress.percent() << " % " << Qt::flush;
                         });
    }
    if (session.environment().onInterrupt) {
        session.environment().onInterrupt(run, [&run] { run.requestStop(); });
    }
    run.start(std::move(items));
    loop.exec();
    if (session.environment().showsProgress) {
        err << '\r' << Qt::flush;
    }
    return report;
}

template <class Paths>
QJsonArray pathsJson(const Paths& paths)
{
    QJsonArray array;
    for (const auto& entry : paths) {
        array.append(
            QJsonObject{{QStringLiteral("path"), entry.path}, {QStringLiteral("reason"), entry.reason}});
    }
    return array;
}

void printReport(Session& session, const ImportReport& report, const QString& title)
{
    if (session.json()) {
        const QJsonObject object{{QStringLiteral("imported"), QJsonArray::fromStringList(report.imported)},
                                 {QStringLiteral("failed"), pathsJson(report.failed)},
                                 {QStringLiteral("skipped"), pathsJson(report.skipped)}};
        session.out() << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) << Qt::endl;
    } else {
        session.out() << text("Hint.Ctl.Imported", QString::number(report.imported.size()), oneLine(title))
                      << Qt::endl;
    }
    for (const auto& failed : report.failed) {
        session.complain(failed.path + QStringLiteral(": ") + failed.reason);
    }
    for (const auto& skipped : report.skipped) {
        session.complain(skipped.path + QStringLiteral(": ") + skipped.reason);
    }
}

/// Files inside a folder may be left out in silence; one that was named and is not there may not.
bool namesMissingFile(const QCommandLineParser& line)
{
    const QStringList paths = line.positionalArguments();
    return std::any_of(paths.begin(), paths.end(),
                       [](const QString& path) { return !QFileInfo::exists(path); });
}

} // namespace

int importFiles(Session& session, const QCommandLineParser& line)
{
    if (line.isSet(QStringLiteral("kind")) && !kindFromText(line.value(QStringLiteral("kind")))) {
        return session.wrongUsage(text("Failure.Ctl.Kind", kindsInWords()), "import");
    }
    const bool missesFile = namesMissingFile(line);
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const QString title = line.isSet(QStringLiteral("collection")) ? line.value(QStringLiteral("collection"))
                                                                   : text("Basic.Untitled.Collection");
    const auto collection = findOrMakeCollection(session.context(), title);
    if (!collection) {
        return session.fail(collection.reason());
    }
    const ImportReport report = runImport(session, collection.value(), copies(session, line), itemsOf(line));
    printReport(session, report, title);
    if (report.stopped) {
        return session.fail(text("Failure.Ctl.Stopped", QString::number(report.tried)));
    }
    return report.failed.empty() && !missesFile ? kAllWell : kSomeItemsFailed;
}

} // namespace mosaro::ctl
