#pragma once

#include "browser/SelectionFacts.h"
#include "browser/ui/MRBrowserView.h"
#include "import/ui/ImageArrival.h"

class QMimeData;

namespace mosaro::browser {

/// What is dropped on the grid or pasted into it, on its way to the import: the bus carries it to the
/// sidebar, which knows the collections.
class GridArrivals {
public:
    GridArrivals(const BrowserEnvironment& environment, QWidget& pane);

    /// Files or an address.
    [[nodiscard]] static bool carriesMedia(const QMimeData& data);
    void drop(const QMimeData& data);
    void paste(const QMimeData& data, const SelectedCollections& selected);

private:
    [[nodiscard]] bool canPaste(const SelectedCollections& selected) const;
    [[nodiscard]] QStringList allowedMedia() const;

    const BrowserEnvironment& m_environment;
    importing::ImageArrival m_arrival;
};

} // namespace mosaro::browser
