#include "organisation/MediaMove.h"

#include "store/Media.h"

#include <QDateTime>

namespace mosaro::organisation {

bool startMediaMove(SlicedRun& run, store::StoreContext& context, const QStringList& mediaIDs,
                    const std::shared_ptr<store::Collections>& target, std::function<void(qsizetype)> saved,
                    std::function<void(const RecordRun::End&)> finished)
{
    const auto move = [&context, mediaIDs, target](qsizetype position) {
        if (position == 0) {
            target->setDateModified(QDateTime::currentDateTimeUtc());
        }
        const auto media = context.first<store::Media>(store::Predicate::compare(
            QLatin1String("mediaID"), store::Comparison::Equal, mediaIDs[position]));
        if (media) {
            media->setMediaPID(target->collectionID());
            media->setCollections(target);
        }
        return media != nullptr;
    };
    return startRecordRun(run, context, {mediaIDs.size(), move, std::move(saved), std::move(finished)});
}

} // namespace mosaro::organisation
