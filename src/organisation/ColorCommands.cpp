#include "organisation/ColorCommands.h"

#include "store/ColorList.h"
#include "store/Colors.h"
#include "store/ZNDBManager.h"

namespace mosaro::organisation {

bool isColorCommandPossible(ColorCommand command, int selected)
{
    return command == ColorCommand::ShowColorInColorPicker ? selected == 1 : selected >= 1;
}

LikeMarks likeMarks(bool anyLiked, bool anyUnliked)
{
    if (anyLiked && anyUnliked) {
        return {Qt::PartiallyChecked, Qt::PartiallyChecked};
    }
    return {anyLiked ? Qt::Checked : Qt::Unchecked, anyUnliked ? Qt::Checked : Qt::Unchecked};
}

OrphanedColors::OrphanedColors(store::ZNDBManager& library, QObject* parent)
    : QObject(parent), m_library(library)
{
}

void OrphanedColors::collect(const std::vector<store::RowId>& rows)
{
    m_waiting.insert(m_waiting.end(), rows.begin(), rows.end());
    start();
}

void OrphanedColors::start()
{
    if (m_waiting.empty() || m_run.isRunning()) {
        return;
    }
    const auto rows = std::make_shared<std::vector<store::RowId>>(std::exchange(m_waiting, {}));
    m_run.start(
        {.count = qsizetype(rows->size()),
         .step = [this, rows](qsizetype position) { removeIfUnused((*rows)[size_t(position)]); },
         .finished = [this](qsizetype) { start(); },
         .pauses = [this] { return m_library.isOpenedDatabase() && m_library.context()->isTidying(); }});
}

/// An import may have given the colour to an item in the meantime.
void OrphanedColors::removeIfUnused(store::RowId row) const
{
    if (!m_library.isOpenedDatabase()) {
        return;
    }
    store::StoreContext& context = *m_library.context();
    const auto uses = context.count(
        store::ColorList::info(), store::Predicate::compare(QLatin1String("colors"), store::Comparison::Equal,
                                                            static_cast<qlonglong>(row)));
    const auto record = context.object<store::Colors>(row);
    if (record && uses && uses.value() == 0) {
        context.remove(*record);
        (void)context.save();
    }
}

} // namespace mosaro::organisation
