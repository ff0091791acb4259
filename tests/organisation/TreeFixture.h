#pragma once

#include "organisation/CollectionTree.h"
#include "organisation/TreeWalk.h"
#include "support/TemporaryLibrary.h"

namespace mosaro::test {

inline QStringList words(const QString& text, QChar separator = u' ')
{
    return text.split(separator, Qt::SkipEmptyParts);
}

/// A library of collections "id,title,type,parent id|…" with its tree; later parts of a row may be missing.
struct TreeFixture {
    TemporaryLibrary library;
    organisation::CollectionTree tree;

    explicit TreeFixture(const QString& records = {})
    {
        for (const QString& row : words(records, u'|')) {
            const QStringList parts = row.split(u',');
            const auto record = library.addCollection(parts.value(1), parts.value(2).toInt(), parts.value(3));
            record->setCollectionID(parts.value(0));
        }
        if (!library.context().save() || !tree.makeLibrary(library.context()))
            qFatal("no tree");
    }
    [[nodiscard]] std::shared_ptr<store::Collections> record(const QString& id)
    {
        return library.context().first<store::Collections>(
            store::Predicate::compare(QLatin1String("collectionID"), store::Comparison::Equal, id));
    }
    /// The nodes of IDs that blanks separate.
    [[nodiscard]] organisation::NodeList nodes(const QString& ids) const
    {
        organisation::NodeList nodes;
        for (const QString& id : words(ids))
            nodes.push_back(tree.node(id));
        return nodes;
    }
};

} // namespace mosaro::test
