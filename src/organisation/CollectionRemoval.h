#pragma once

#include "organisation/RecordRun.h"
#include "store/LibraryState.h"

#include <QStringList>

namespace mosaro::organisation {

/// Takes collections out of the store with the items that they own. Item by item, so that the window lives
/// and the work can end anywhere: what is left then is a collection with fewer items, in its folder. Smart
/// collections and folders take nothing along.
class CollectionRemoval {
public:
    /// All outlive it.
    CollectionRemoval(SlicedRun& run, store::StoreContext& context, store::LibraryState& state,
                      QString masterDirPath);

    /// Parents before what is below them. False while another run goes on. `progress` gets 0 to 100;
    /// `finished` how many collections are gone. Stopping the run ends it.
    bool start(const QStringList& collectionIDs, std::function<void(int percent)> progress,
               std::function<void(const RecordRun::End& end)> finished);

    /// The folders of the items that are gone from the store: to be removed from the disk.
    [[nodiscard]] const QStringList& packages() const { return m_packages; }

private:
    struct Step {
        qsizetype collection;
        store::RowId item; ///< kUnsavedRow: the collection itself.
    };

    void plan();
    bool take(const Step& step);
    [[nodiscard]] QString packageOf(const QString& thumbPath) const;
    void saved(qsizetype done, const std::function<void(int)>& progress);

    SlicedRun& m_run;
    store::StoreContext& m_context;
    store::LibraryState& m_state;
    QString m_masterDirPath;
    QStringList m_collectionIDs;
    std::vector<Step> m_steps;
    QStringList m_packages;
    QStringList m_pendingPackages; ///< Of items whose removal is not saved yet.
};

} // namespace mosaro::organisation
