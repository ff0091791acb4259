#pragma once

#include "organisation/CollectionRemoval.h"
#include "organisation/RunProgress.h"
#include "organisation/SlicedRun.h"
#include "organisation/StoredFileRemoval.h"
#include "organisation/TreeWalk.h"

#include <QElapsedTimer>
#include <QObject>
#include <QVariantMap>
#include <memory>

namespace mosaro::organisation {

class MRLibraryCollectionSource;
struct SidebarEnvironment;

/// The commands of the tree that change more than one record: deletion with its question, its progress
/// that offers a stop, and the files afterwards, moves of items and of collections, labels, and what the
/// editor of a smart collection gives back.
class CollectionChanges : public QObject {
    Q_OBJECT

public:
    CollectionChanges(MRLibraryCollectionSource& source, const SidebarEnvironment& environment);
    /// Files of items that are gone from the store are still removed.
    ~CollectionChanges() override;

    /// A deletion or a move goes on.
    [[nodiscard]] bool isRunning() const { return m_isDeleting || m_run.isRunning(); }

    /// Asks first. The selected nodes and all below them.
    void deleteCollection();
    /// Nothing without items or without the collections that they come from.
    void moveMediaItem(const QStringList& mediaIDs, const QStringList& from, const CollectionNode& to);
    /// Of all selected collections.
    void didChangeLabelValue(int label);
    /// Hangs collections below a folder or the heading of the user's collections. The tree follows in a later
    /// turn of the event loop.
    bool reparent(const QStringList& dragItems, const CollectionNode& target);
    /// An invalid result is discarded without a word.
    void smartCollectionEnded(const QVariantMap& result, bool isEdit);
    /// After items were deleted elsewhere.
    void deleteMediaNotification();

private:
    void startRemoval(const QStringList& ids);
    void finishRemoval(const RecordRun::End& end);
    void removeFiles();
    void showMove(qsizetype done, qsizetype total);
    void finishMove(const RecordRun::End& end);
    void editSmart(const QVariantMap& result);

    MRLibraryCollectionSource& m_source;
    const SidebarEnvironment& m_environment;
    base::ProgressSink& m_panel;
    SlicedRun m_run;
    StoredFileRemoval m_files;
    std::unique_ptr<CollectionRemoval> m_removal; ///< Of the last deletion, until its files are taken over.
    RunProgress m_moveProgress;
    QElapsedTimer m_moveClock;
    bool m_isDeleting = false;
    bool m_isStopped = false; ///< By the user, the deletion.
};

} // namespace mosaro::organisation
