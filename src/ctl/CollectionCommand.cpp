// collection: makes, renames and deletes collections and folders.
#include "base/Text.h"
#include "ctl/CollectionLookup.h"
#include "ctl/Command.h"
#include "ctl/RecordJson.h"
#include "organisation/CollectionCommands.h"
#include "organisation/CollectionRemoval.h"
#include "organisation/NoPanel.h"
#include "organisation/StoredFileRemoval.h"
#include "store/RecordReference.h"

#include <QEventLoop>

namespace mosaro::ctl {

using base::Failure;
using base::Result;
using base::text;
using organisation::CollectionCommands;
using organisation::CollectionNode;
using organisation::CollectionTree;

Result<std::unique_ptr<CollectionTree>> collectionTree(store::StoreContext& context)
{
    auto tree = std::make_unique<CollectionTree>();
    if (const auto made = tree->makeLibrary(context); !made) {
        return made.failure();
    }
    return tree;
}

Result<const CollectionNode*> collectionNode(const CollectionTree& tree, const QString& idOrTitle)
{
    organisation::NodeList found;
    for (const CollectionNode* node : organisation::allNodes(tree.library())) {
        if (node->isUserNode() && node->id.compare(idOrTitle, Qt::CaseInsensitive) == 0) {
            return node;
        }
        if (node->isUserNode() && node->title == idOrTitle) {
            found.push_back(node);
        }
    }
    if (found.size() == 1) {
        return found.front();
    }
    return Failure{found.empty() ? text("Failure.Ctl.NoCollection", idOrTitle)
                                 : text("Failure.Ctl.ManyTitles", idOrTitle)};
}

namespace {

int printRecord(Session& session, const QString& id)
{
    const auto record = session.context().first<store::Collections>(
        store::Predicate::compare(QLatin1String("collectionID"), store::Comparison::Equal, id));
    if (!session.json()) {
        session.out() << id << Qt::endl;
    } else if (record) {
        JsonArrayWriter(session.out()).write(recordJson(*record));
    }
    return kAllWell;
}

int add(Session& session, const QCommandLineParser& line, const CollectionTree& tree)
{
    const CollectionNode* parent = nullptr;
    if (line.isSet(QStringLiteral("in"))) {
        const auto folder = collectionNode(tree, line.value(QStringLiteral("in")));
        if (!folder || folder.value()->type != store::kTypeFolder) {
            return session.fail(folder ? text("Failure.Ctl.NoFolder", folder.value()->title)
                                       : folder.reason());
        }
        parent = folder.value();
    }
    organisation::NewCollection item;
    item.type = line.isSet(QStringLiteral("folder")) ? store::kTypeFolder : store::kTypeCollection;
    item.title = line.positionalArguments().constLast();
    const auto made = CollectionCommands(session.context()).addItem(item, parent);
    return made ? printRecord(session, made.value()) : session.fail(made.reason());
}

int rename(Session& session, const QCommandLineParser& line, const CollectionTree& tree)
{
    const auto node = collectionNode(tree, line.positionalArguments().at(1));
    if (!node) {
        return session.fail(node.reason());
    }
    const auto renamed =
        CollectionCommands(session.context()).rename(*node.value(), line.positionalArguments().constLast());
    return renamed ? printRecord(session, node.value()->id) : session.fail(renamed.reason());
}

/// Takes all of them, or none when one is not there.
int remove(Session& session, const QCommandLineParser& line, const CollectionTree& tree)
{
    organisation::NodeList doomed;
    const QStringList operands = line.positionalArguments().mid(1);
    for (const QString& operand : operands) {
        const auto node = collectionNode(tree, operand);
        if (!node) {
            return session.fail(node.reason());
        }
        doomed.push_back(node.value());
        organisation::findChildrenInFolderItem(node.value()->nodes, doomed);
    }
    QStringList ids;
    for (const CollectionNode* node : doomed) {
        ids.removeAll(node->id); // The last place counts: a folder comes before what lies in it.
        ids.append(node->id);
    }

    organisation::SlicedRun run;
    organisation::CollectionRemoval removal(run, session.context(), session.library().state(),
                                            session.library().masterDirPath());
    QEventLoop loop;
    QString failure;
    removal.start(ids, {}, [&](const organisation::RecordRun::End& end) {
        failure = end.failure;
        loop.quit();
    });
    loop.exec();
    organisation::NoPanel none;
    base::ZNUtilities silent; // A script wants no notification of the desktop.
    organisation::StoredFileRemoval(none, silent, session.environment().defaults)
        .deleteMediaFiles(removal.packages());
    if (!failure.isEmpty()) {
        return session.fail(failure);
    }
    session.out() << (session.json() ? QStringLiteral("[]")
                                     : text("Hint.Ctl.Collection.Deleted", QString::number(ids.size()),
                                            QString::number(removal.packages().size())))
                  << Qt::endl;
    return kAllWell;
}

struct Verb {
    const char* name;
    const char* operands;
    int least;
    int most;
    bool endsWithTitle;
    int (*perform)(Session& session, const QCommandLineParser& line, const CollectionTree& tree);
};
constexpr Verb kVerbs[] = {{"add", "add TITLE", 1, 1, true, add},
                           {"rename", "rename COLLECTION TITLE", 2, 2, true, rename},
                           {"delete", "delete COLLECTION...", 1, -1, false, remove}};

/// What is wrong with the operands of a verb; empty for nothing.
QString usageFault(const Verb& verb, const QStringList& operands)
{
    const auto count = operands.size() - 1;
    if (count < verb.least || (verb.most >= 0 && count > verb.most)) {
        return text("Failure.Ctl.Operands", QLatin1String(verb.operands));
    }
    return verb.endsWithTitle && !CollectionCommands::isAcceptableTitle(operands.constLast())
               ? text("Failure.Ctl.EmptyTitle")
               : QString();
}

} // namespace

int collection(Session& session, const QCommandLineParser& line)
{
    const QStringList operands = line.positionalArguments();
    const auto* verb = std::find_if(std::begin(kVerbs), std::end(kVerbs), [&](const Verb& known) {
        return operands.constFirst() == QLatin1String(known.name);
    });
    if (verb == std::end(kVerbs)) {
        return session.wrongUsage(text("Failure.Ctl.Operands", QStringLiteral("add, rename or delete")),
                                  "collection");
    }
    if (const QString fault = usageFault(*verb, operands); !fault.isEmpty()) {
        return session.wrongUsage(fault, "collection");
    }
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const auto tree = collectionTree(session.context());
    return tree ? verb->perform(session, line, *tree.value()) : session.fail(tree.reason());
}

} // namespace mosaro::ctl
