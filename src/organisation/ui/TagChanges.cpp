#include "organisation/ui/TagChanges.h"

#include "base/Text.h"
#include "base/ZNUtilities.h"
#include "kit/ColorPanel.h"
#include "organisation/CollectionNames.h"
#include "organisation/DatabaseError.h"
#include "organisation/TagColors.h"
#include "organisation/ui/MRLibraryTableView.h"
#include "organisation/ui/MRLibraryTagsSource.h"
#include "store/ZNDBManager.h"

#include <QPointer>

namespace mosaro::organisation {

TagChanges::TagChanges(MRLibraryTagsSource& source, const SidebarEnvironment& environment,
                       MRLibraryTableView& list, TagList& tags)
    : m_source(source), m_environment(environment), m_list(list), m_tags(tags),
      m_progress(environment.progress)
{
    m_progress.setStop([this] { m_deletion.stop(); });
}

bool TagChanges::isOpen() const
{
    return m_environment.library.isOpenedDatabase();
}

TagCommands TagChanges::commands() const
{
    return {*m_environment.library.context(), m_environment.library.state()};
}

void TagChanges::readAnew()
{
    m_source.reload();
    m_source.postNotifcationTagsDidUpdated();
}

void TagChanges::addTag()
{
    m_list.endEditing();
    if (!isOpen()) {
        return;
    }
    const QString title = availableName(base::text("Basic.Untitled.Tag"), m_tags.titles());
    const auto made = commands().addTag(title);
    if (!made) {
        showDatabaseError(made.reason());
        return;
    }
    readAnew();
    if (const int row = m_tags.indexOfObject(made.value()); row >= 0) {
        m_list.selectRows({row});
        m_list.editRow(row);
    }
}

void TagChanges::rename(const QString& tagID, const QString& title)
{
    const int row = m_tags.indexOf(tagID);
    if (row < 0 || !isOpen() || !TagCommands::isAcceptableTitle(title) ||
        title == m_tags.at(row).title) { // An editor that was left as it was opened renames nothing.
        return;
    }
    if (m_tags.isTitleTaken(title)) {
        // The editor that the title comes from is being closed: the question waits until it is gone.
        QMetaObject::invokeMethod(
            this, [this, tagID, title] { refuseTitle(tagID, title); }, Qt::QueuedConnection);
        return;
    }
    if (const auto renamed = commands().rename(m_tags.at(row).object, title); !renamed) {
        showDatabaseError(renamed.reason());
        return;
    }
    m_environment.library.state().removeAllLastSelectedTags();
    m_environment.library.state().addLastSelectedTag(tagID);
    readAnew();
}

void TagChanges::refuseTitle(const QString& tagID, const QString& title)
{
    const QPointer<TagChanges> self(this); // The alert runs an event loop.
    m_environment.utilities.alertWithMessageText(base::text("Basic.Alert"), base::text("Basic.OK"), {},
                                                 titleTakenText(title));
    if (const int row = self ? m_tags.indexOf(tagID) : -1; row >= 0) {
        m_list.editRow(row, title);
    }
}

void TagChanges::tagColor(int choice)
{
    if (!isOpen() || m_list.selectedRows().isEmpty()) {
        return;
    }
    if (choice == kCustomTagColor) {
        kit::ColorPanel& panel = kit::ColorPanel::sharedPanel(m_list);
        connect(&panel, &kit::ColorPanel::colorDidChange, this, &TagChanges::customColorDidChanged,
                Qt::UniqueConnection);
        panel.setColor(Qt::white);
        panel.open();
        return;
    }
    updateTagColor(labelColorAtIndex(choice));
}

void TagChanges::customColorDidChanged(const QColor& color)
{
    if (m_source.isInstalled() && isOpen()) {
        updateTagColor(base::ColorValue::fromColor(color));
    }
}

void TagChanges::updateTagColor(const std::optional<base::ColorValue>& color)
{
    const QList<int> rows = m_list.selectedRows();
    if (rows.isEmpty()) {
        return;
    }
    const QString text = color ? base::colorAsString(*color) : QString();
    for (const int row : rows) {
        if (const auto saved = commands().setTagColor(m_tags.at(row).object, color); !saved) {
            showDatabaseError(saved.reason());
        } else {
            m_tags.setTagColor(row, text);
        }
    }
    m_list.viewport()->update();
    m_source.postNotifcationTagsDidUpdated();
}

void TagChanges::deleteTag()
{
    m_list.endEditing();
    const std::vector<TagRecord> tags = m_source.selectedTags();
    if (!isOpen() || tags.empty() || isRunning()) {
        return;
    }
    const QString number = QString::number(tags.size());
    const QString question = tags.size() == 1 ? base::text("Message.Delete.Tag", number)
                                              : base::text("Message.Delete.Tags", number);
    const QPointer<TagChanges> self(this); // The question runs an event loop.
    const int answer = m_environment.utilities.alertWithMessageText(
        base::text("Basic.Alert"), base::text("Basic.Delete"), base::text("Basic.Cancel"), question);
    if (self && answer == 1) {
        m_list.clearSelection();
        deleteTags(tags);
    }
}

void TagChanges::deleteTags(const std::vector<TagRecord>& tags)
{
    const auto total = qsizetype(tags.size());
    const auto step = [this, tags](qsizetype position) {
        if (const auto gone = commands().remove(tags.at(std::size_t(position))); !gone) {
            showDatabaseError(gone.reason());
        }
    };
    const auto sliceEnded = [this, total](qsizetype done) {
        if (done < total) {
            m_progress.report(base::text("Basic.Delete.Tags"), percentOf(done, total));
        }
    };
    const auto finished = [this](qsizetype) {
        m_progress.end();
        readAnew();
    };
    m_deletion.start(
        {.count = total, .step = step, .sliceEnded = sliceEnded, .finished = finished, .pauses = [this] {
             return m_environment.library.context()->isTidying();
         }});
}

} // namespace mosaro::organisation
