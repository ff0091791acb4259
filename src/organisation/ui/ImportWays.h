#pragma once

#include "import/ImportItem.h"
#include "organisation/TreeWalk.h"

#include <QVariant>

namespace mosaro::organisation {

class MRLibraryCollectionSource;
struct SidebarEnvironment;

/// The ways by which files reach an import from the sidebar and the grid: each finds the collection that they
/// go into, or makes one. What cannot be a target ends the attempt without a word.
class ImportWays {
public:
    ImportWays(MRLibraryCollectionSource& source, const SidebarEnvironment& environment);

    /// The open panel, for the one selected collection or folder.
    void importMedia();
    /// Files dropped on a node; null: outside of all rows, which makes a collection at the top level.
    void importDropped(const QStringList& paths, const CollectionNode* onto);
    [[nodiscard]] static bool isDropTarget(const CollectionNode* node);
    /// A picture that was dropped in the same way on the node with an ID, or with none, and is a file now.
    void importReceived(const importing::ImportItem& item, const QString& ontoID);
    /// Files dropped on the grid: into the one selected collection. False when nothing was started.
    bool requestDraggedFileToImport(const QVariant& value);
    /// The same for a picture of a web page.
    void requestURLImageToImport(const QVariant& value);
    /// A pasted picture or a capture, which finds a place in any case that allows one.
    void didCapturedMedia(const QVariant& record);
    /// Shows the collection that another part names and imports into it, or into a new one in that folder.
    void collectionSourceCreated(const QVariant& record);

private:
    [[nodiscard]] const CollectionNode* onlySelected() const;
    bool importItems(std::vector<importing::ImportItem> items, const QString& nameOfNew,
                     const CollectionNode* onto);
    [[nodiscard]] const CollectionNode* captureTarget();
    void discardReceived(const importing::ImportItem& item);

    MRLibraryCollectionSource& m_source;
    const SidebarEnvironment& m_environment;
};

} // namespace mosaro::organisation
