#pragma once

#include "organisation/RecordRun.h"
#include "store/Collections.h"

#include <QStringList>

namespace mosaro::organisation {

/// Makes a collection the owner of items; IDs that no item has are passed over. False while another run goes
/// on.
bool startMediaMove(SlicedRun& run, store::StoreContext& context, const QStringList& mediaIDs,
                    const std::shared_ptr<store::Collections>& target, std::function<void(qsizetype)> saved,
                    std::function<void(const RecordRun::End&)> finished);

} // namespace mosaro::organisation
