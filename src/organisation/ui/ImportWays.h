#pragma once

#include "base/Ports.h"
#include "import/MediaClassification.h"
#include "organisation/TreeWalk.h"

#include <QVariant>

namespace mosaro::organisation {

class MRLibraryCollectionSource;

/// The ways by which files reach an import from the sidebar and the grid: each finds the collection that they
/// go into, or makes one. What cannot be a target ends the attempt without a word.
class ImportWays {
public:
    ImportWays(MRLibraryCollectionSource& source, base::Prompts& prompts,
               const importing::MediaClassification& classification);

    /// The open panel, for the one selected collection or folder.
    void importMedia();
    /// Files dropped on a node; null: outside of all rows, which makes a collection at the top level.
    void importDropped(const QStringList& paths, const CollectionNode* onto);
    [[nodiscard]] static bool isDropTarget(const CollectionNode* node);
    /// Files dropped on the grid: into the one selected collection.
    void requestDraggedFileToImport(const QVariant& value);

private:
    [[nodiscard]] const CollectionNode* onlySelected() const;
    void importInto(const CollectionNode& node, const QStringList& paths);
    void importIntoNewCollection(const QStringList& paths, bool onRoot);

    MRLibraryCollectionSource& m_source;
    base::Prompts& m_prompts;
    const importing::MediaClassification& m_classification;
};

} // namespace mosaro::organisation
