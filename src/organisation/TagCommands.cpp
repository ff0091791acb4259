#include "organisation/TagCommands.h"

#include "base/ColorText.h"
#include "base/Text.h"
#include "organisation/CollectionCommands.h"
#include "store/SelectionElement.h"
#include "store/Tags.h"

#include <QUuid>

namespace mosaro::organisation {

namespace {

constexpr qint64 kSortByImportDate = 7;
constexpr double kDefaultZoom = 0.4;
constexpr qsizetype kShownTitle = 30; ///< Characters; as a word without a gap it still fits into an alert.

} // namespace

bool isTagCommandPossible(TagCommand command, int selected)
{
    switch (command) {
    case TagCommand::NewTag:
        return true;
    case TagCommand::TagColor:
    case TagCommand::Delete:
        return selected > 0;
    case TagCommand::Edit:
        return selected == 1;
    }
    return false;
}

bool isTagDropPossible(bool isBusy, bool carriesItems, bool isOnRow, int selected)
{
    return !isBusy && carriesItems && isOnRow && selected == 1;
}

QString titleTakenText(const QString& title)
{
    QString shown = title.left(kShownTitle);
    if (shown.size() < title.size()) {
        shown.chop(shown.back().isHighSurrogate() ? 1 : 0);
        shown += QChar(0x2026);
    }
    return base::text("Error.Already.Exsts", shown);
}

base::Result<void> TagCommands::saveOrDrop()
{
    auto saved = m_context.save();
    if (!saved) {
        m_context.rollback();
    }
    return saved;
}

template <class Change>
base::Result<void> TagCommands::change(store::RowId tag, Change apply)
{
    const auto record = m_context.object<store::Tags>(tag);
    if (!record) {
        return base::Failure{base::text("Failure.Tag.Gone")};
    }
    apply(*record);
    return saveOrDrop();
}

base::Result<store::RowId> TagCommands::addTag(const QString& title)
{
    const auto record = m_context.insert<store::Tags>();
    record->setTagID(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    record->setTitle(title);
    record->setTagColor(QStringLiteral(""));
    record->setIsAscending(false);
    record->setSortKey(kSortByImportDate);
    record->setZoomValue(kDefaultZoom);
    if (const auto saved = saveOrDrop(); !saved) {
        return saved.failure();
    }
    return record->rowId();
}

bool TagCommands::isAcceptableTitle(const QString& title)
{
    return CollectionCommands::isAcceptableTitle(title);
}

base::Result<void> TagCommands::rename(store::RowId tag, const QString& title)
{
    return change(tag, [&title](store::Tags& record) { record.setTitle(title); });
}

base::Result<void> TagCommands::setTagColor(store::RowId tag, const std::optional<base::ColorValue>& color)
{
    const QString text = color ? base::colorAsString(*color) : QStringLiteral("");
    return change(tag, [&text](store::Tags& record) { record.setTagColor(text); });
}

base::Result<void> TagCommands::remove(const TagRecord& tag)
{
    m_state.removeLastSelectedMedia(tag.tagID + QStringLiteral("+Tag"));
    return change(tag.object, [this](store::Tags& record) { m_context.remove(record); });
}

} // namespace mosaro::organisation
