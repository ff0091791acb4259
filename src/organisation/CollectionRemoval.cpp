#include "organisation/CollectionRemoval.h"

#include "organisation/RunProgress.h"
#include "store/Collections.h"
#include "store/LibraryPackage.h"
#include "store/Media.h"
#include "store/SelectionElement.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::organisation {

using store::Comparison;
using store::Predicate;

namespace {

std::shared_ptr<store::Collections> collectionOf(store::StoreContext& context, const QString& id)
{
    return context.first<store::Collections>(
        Predicate::compare(QLatin1String("collectionID"), Comparison::Equal, id));
}

} // namespace

CollectionRemoval::CollectionRemoval(SlicedRun& run, store::StoreContext& context, store::LibraryState& state,
                                     QString masterDirPath)
    : m_run(run), m_context(context), m_state(state), m_masterDirPath(std::move(masterDirPath))
{
}

bool CollectionRemoval::start(const QStringList& collectionIDs, std::function<void(int)> progress,
                              std::function<void(const RecordRun::End&)> finished)
{
    if (m_run.isRunning()) {
        return false;
    }
    m_collectionIDs = collectionIDs;
    m_packages.clear();
    m_pendingPackages.clear();
    plan();
    return startRecordRun(
        m_run, m_context,
        {.count = qsizetype(m_steps.size()),
         .change = [this](qsizetype position) { return take(m_steps[size_t(position)]); },
         .saved = [this, progress = std::move(progress)](qsizetype done) { saved(done, progress); },
         .finished = std::move(finished)});
}

/// From the last, so that no collection is left whose folder is gone: it would not be in the tree.
void CollectionRemoval::plan()
{
    m_steps.clear();
    for (qsizetype i = m_collectionIDs.size() - 1; i >= 0; --i) {
        const auto record = collectionOf(m_context, m_collectionIDs[i]);
        if (!record) {
            continue;
        }
        if (record->type() == store::kTypeCollection) {
            const auto owned = Predicate::compare(QLatin1String("collections"), Comparison::Equal,
                                                  QVariant(record->rowId()));
            const auto items = m_context.fetchIds(store::Media::info(), {owned, {}, -1});
            for (const store::RowId item : items ? items.value() : std::vector<store::RowId>()) {
                m_steps.push_back({i, item});
            }
        }
        m_steps.push_back({i, store::kUnsavedRow});
    }
}

bool CollectionRemoval::take(const Step& step)
{
    if (step.item != store::kUnsavedRow) {
        if (const auto media = m_context.object<store::Media>(step.item)) {
            if (const QString package = packageOf(media->mediaThumbPath()); !package.isEmpty()) {
                m_pendingPackages.append(package);
            }
            m_context.remove(*media);
        }
        return false;
    }
    const QString& id = m_collectionIDs[step.collection];
    m_state.removeLastSelectedMedia(id + QLatin1String("+Collection"));
    const auto record = collectionOf(m_context, id);
    if (record) {
        m_context.remove(*record);
    }
    return record != nullptr;
}

/// Two levels above the preview. Empty when that is no item's folder, or none of this library: a record may
/// say anything.
QString CollectionRemoval::packageOf(const QString& thumbPath) const
{
    const QString folder = QFileInfo(QFileInfo(thumbPath).path()).path();
    const QString path = QDir::cleanPath(m_masterDirPath + QLatin1Char('/') + folder);
    const bool isInside = path.startsWith(QDir::cleanPath(m_masterDirPath) + QLatin1Char('/'));
    const bool isItem = QFileInfo(path).suffix() == QLatin1String(store::kItemSuffix);
    return isInside && isItem ? path : QString();
}

void CollectionRemoval::saved(qsizetype done, const std::function<void(int)>& progress)
{
    m_packages += m_pendingPackages;
    m_pendingPackages.clear();
    if (progress) {
        progress(percentOf(done, qsizetype(m_steps.size())));
    }
}

} // namespace mosaro::organisation
