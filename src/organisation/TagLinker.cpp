#include "organisation/TagLinker.h"

#include "store/Media.h"
#include "store/MediaTagList.h"
#include "store/TagLinks.h"
#include "store/Tags.h"

#include <span>

namespace mosaro::organisation {

namespace {

constexpr size_t kAtHand = 500;

} // namespace

TagLinker::TagLinker(store::StoreContext& context, store::RowId tag, std::vector<store::RowId> items,
                     TagDirection direction, int perSave)
    : m_context(context), m_tag(tag), m_items(std::move(items)), m_direction(direction), m_perSave(perSave)
{
    if (const auto record = context.object<store::Tags>(tag)) {
        m_tagID = record->tagID();
    } else {
        m_items.clear();
    }
}

void TagLinker::prepare(qsizetype from)
{
    saveRest(); // What is asked for next is asked of the store.
    m_mediaIDs.clear();
    m_present.clear();
    const size_t begin = size_t(from);
    const std::span ahead(m_items.data() + begin, std::min(kAtHand, m_items.size() - begin));
    if (auto links = store::linksOfTag(m_context, m_tag, ahead)) {
        m_present = std::move(links).value();
    }
    if (m_direction == TagDirection::Add) {
        if (auto ids = store::mediaIDs(m_context, ahead)) {
            m_mediaIDs = std::move(ids).value();
        }
    }
}

void TagLinker::step(qsizetype position)
{
    if (position % qsizetype(kAtHand) == 0) {
        prepare(position);
    }
    const store::RowId item = m_items.at(size_t(position));
    if (m_direction == TagDirection::Add) {
        link(item);
    } else {
        unlink(item);
    }
}

void TagLinker::link(store::RowId item)
{
    const auto id = m_mediaIDs.constFind(item);
    if (id == m_mediaIDs.cend() || m_present.contains(item)) {
        return;
    }
    const auto made = m_context.insert<store::MediaTagList>();
    made->setMediaID(*id);
    made->setTagID(m_tagID);
    made->setAttribute(store::MediaTagList::k_media, item);
    made->setAttribute(store::MediaTagList::k_tags, m_tag);
    m_present.insert(item, store::kUnsavedRow); // An item that comes twice is linked once.
    didChange();
}

void TagLinker::unlink(store::RowId item)
{
    const store::RowId row = m_present.take(item);
    const auto gone = row == store::kUnsavedRow ? nullptr : m_context.object<store::MediaTagList>(row);
    if (gone) {
        m_context.remove(*gone);
        didChange();
    }
}

void TagLinker::didChange()
{
    if (++m_pending >= m_perSave) {
        saveRest();
    }
}

void TagLinker::saveRest()
{
    if (m_pending == 0) {
        return;
    }
    if (const auto saved = m_context.save()) {
        m_changed += m_pending;
    } else {
        m_context.rollback();
        m_failed += m_pending;
        m_reason = saved.reason();
    }
    m_pending = 0;
}

std::vector<store::RowId> mediaRows(store::StoreContext& context, const QStringList& mediaIDs)
{
    std::vector<store::RowId> rows;
    for (qsizetype begin = 0; begin < mediaIDs.size(); begin += qsizetype(kAtHand)) {
        const QVariant some(mediaIDs.mid(begin, qsizetype(kAtHand)));
        const auto found = context.fetchIds(
            store::Media::info(),
            {store::Predicate::compare(QLatin1String("mediaID"), store::Comparison::In, some.toList()),
             {},
             -1});
        if (found) {
            rows.insert(rows.end(), found.value().begin(), found.value().end());
        }
    }
    return rows;
}

} // namespace mosaro::organisation
