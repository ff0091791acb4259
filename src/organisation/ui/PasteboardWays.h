#pragma once

#include "import/ui/ImageArrival.h"
#include "organisation/ui/ImportWays.h"

class QMimeData;

namespace mosaro::organisation {

/// What is dropped on the tree or pasted into it: files go to the import at once, a picture without a file
/// becomes one first.
class PasteboardWays {
public:
    PasteboardWays(MRLibraryCollectionSource& source, ImportWays& ways, const SidebarEnvironment& environment,
                   QWidget& sidebar);

    /// Null stands for the space outside of all rows.
    void accept(const QMimeData& data, const CollectionNode* onto);
    /// A selected collection or folder takes it; else a new collection does.
    void pasteItemsToOutlineView(const QMimeData& data);

private:
    void pasteFiles(const QStringList& paths);

    MRLibraryCollectionSource& m_source;
    ImportWays& m_ways;
    const SidebarEnvironment& m_environment;
    importing::ImageArrival m_arrival;
};

} // namespace mosaro::organisation
