#pragma once

#include "organisation/SlicedRun.h"
#include "store/StoreContext.h"

namespace mosaro::organisation {

/// Changes to many records that are saved as they go: a stop, a crash or a failed save leaves whole items,
/// done or not done. The first save that fails ends the run.
struct RecordRun {
    struct End {
        int changed = 0; ///< Changes that are saved.
        QString failure; ///< Reason of the save that failed; empty when all went well.
    };

    qsizetype count = 0;
    /// Changes the records of one position; false when there was nothing to change.
    std::function<bool(qsizetype position)> change;
    /// After each save, with the positions that are done by now.
    std::function<void(qsizetype done)> saved = {};
    std::function<void(const End& end)> finished = {};
};

/// False while another run goes on. The context outlives the run.
bool startRecordRun(SlicedRun& run, store::StoreContext& context, RecordRun work);

} // namespace mosaro::organisation
