#include "organisation/ui/MRLibraryTagsSource.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "import/MediaDrag.h"
#include "kit/ColorPanel.h"
#include "organisation/CollectionNames.h"
#include "organisation/DatabaseError.h"
#include "organisation/TagColors.h"
#include "organisation/ui/MRLibraryTableView.h"
#include "organisation/ui/TagCell.h"
#include "organisation/ui/TagMenu.h"
#include "store/TagLinks.h"
#include "store/ZNDBManager.h"

#include <QMimeData>
#include <QScrollBar>
#include <QSignalBlocker>

namespace mosaro::organisation {

namespace {

/// Changes of a drop that make one save: few enough for the window to stay live.
constexpr int kDropsPerSave = 100;

} // namespace

MRLibraryTagsSource::MRLibraryTagsSource(const SidebarEnvironment& environment, QWidget& sidebar,
                                         std::function<void()> selectLibrary)
    : m_environment(environment), m_selectLibrary(std::move(selectLibrary)), m_model(m_tags),
      m_list(new MRLibraryTableView(
          m_model, new TagCell(m_tags, [this](const TagRecord& tag) { return badge(tag); }), &sidebar)),
      m_menu(new TagMenu([this](TagCommand command) { return validate(command); },
                         [this] { return tagColorChoices(selectedTags()); }, &sidebar)),
      m_progress(environment.progress), m_drop(environment.progress)
{
    m_list->setAccessibleName(base::text("Accessible.Tags"));
    connectList();
    observeBus();
}

MRLibraryTagsSource::~MRLibraryTagsSource()
{
    // The list is the sidebar's child and may outlive the model by a moment.
    m_list->disconnect(this);
    delete m_list;
}

void MRLibraryTagsSource::connectList()
{
    connect(m_list, &MRLibraryTableView::selectionDidChange, this,
            &MRLibraryTagsSource::tableViewSelectionDidChange);
    connect(m_list, &MRLibraryTableView::renameRequested, this, &MRLibraryTagsSource::editTag);
    connect(m_list, &MRLibraryTableView::deleteRequested, this, &MRLibraryTagsSource::deleteTag);
    connect(m_list, &MRLibraryTableView::menuRequested, m_menu,
            [this](const QPoint& position) { m_menu->popup(position); });
    connect(m_list, &MRLibraryTableView::mediaDropped, this, &MRLibraryTagsSource::acceptDrop);
    connect(&m_model, &TagListModel::titleEdited, this, &MRLibraryTagsSource::rename);
    connect(m_menu, &TagMenu::willOpen, this, [this] { m_list->setFocus(); });
    connect(m_menu, &TagMenu::chosen, this, &MRLibraryTagsSource::run);
    connect(m_menu, &TagMenu::tagColorChosen, this, &MRLibraryTagsSource::tagColor);
    m_list->setDropRule([this](const QMimeData& data, int row) { return validateDrop(data, row); });
}

void MRLibraryTagsSource::observeBus()
{
    base::NotificationBus& bus = m_environment.utilities.bus();
    bus.observe(base::MOSARO_NOTI_UPDATE_TAGS, this, [this](const QVariant&) { reload(); });
    bus.observe(base::MOSARO_NOTI_RELOAD_CURRENT_SELECTION, this,
                [this](const QVariant&) { reloadCurrentSelection(); });
    bus.observe(base::MOSARO_NOTI_SCROLL_TO_TOP, this, [this](const QVariant&) { scrollToTop(); });
}

void MRLibraryTagsSource::reload()
{
    m_counts.reset();
    store::StoreContext* context = m_environment.library.context();
    const int scrolled = m_list->verticalScrollBar()->value();
    const QSignalBlocker silent(m_list);
    m_model.rebuild([this, context] {
        m_tags.clear();
        if (const auto read = context ? m_tags.reload(*context) : base::Result<void>(); !read) {
            showDatabaseError(read.reason());
        }
    });
    m_list->setGuideText(m_tags.count() == 0 ? base::text("Message.No.Tags") : QString());
    m_list->verticalScrollBar()->setValue(scrolled);
    restoreSelectedTags();
}

void MRLibraryTagsSource::restoreSelectedTags()
{
    if (!m_environment.library.isOpenedDatabase()) {
        return;
    }
    QList<int> rows;
    const QStringList selected = m_environment.library.state().lastSelectedTags();
    for (const QString& tagID : selected) {
        if (const int row = m_tags.indexOf(tagID); row >= 0) {
            rows.append(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    m_list->selectRows(rows);
    if (!rows.isEmpty()) {
        m_list->scrollToRow(rows.first());
    }
    // While the tab is not on show nobody asks for its items; showing it asks for them anew.
    if (isInstalled() && (!rows.isEmpty() || !m_selectedMedia.ids.empty())) {
        tableViewSelectionDidChange();
    }
}

void MRLibraryTagsSource::updateSelection()
{
    const QList<int> rows = m_list->selectedRows();
    if (rows.isEmpty()) {
        m_selectedMedia = {};
        m_selectLibrary();
        return;
    }
    m_list->scrollToRow(rows.first());
    tableViewSelectionDidChange();
}

std::vector<TagRecord> MRLibraryTagsSource::selectedTags() const
{
    std::vector<TagRecord> tags;
    const QList<int> rows = m_list->selectedRows();
    for (const int row : rows) {
        tags.push_back(m_tags.at(row));
    }
    return tags;
}

std::vector<store::SelectionElement> MRLibraryTagsSource::selectedCollection() const
{
    std::vector<store::SelectionElement> elements;
    for (const TagRecord& tag : selectedTags()) {
        store::SelectionElement element;
        element.shape = store::SelectionElement::Shape::TagRow;
        element.id = tag.tagID;
        element.title = tag.title;
        element.record = tag.object;
        elements.push_back(std::move(element));
    }
    return elements;
}

QMenu& MRLibraryTagsSource::contextualMenu()
{
    return *m_menu;
}

QWidget& MRLibraryTagsSource::contentView()
{
    return *m_list;
}

void MRLibraryTagsSource::tableViewSelectionDidChange()
{
    store::StoreContext* context = m_environment.library.context();
    if (!context) {
        return;
    }
    store::LibraryState& state = m_environment.library.state();
    state.removeAllLastSelectedTags();
    std::vector<store::RowId> rows;
    for (const TagRecord& tag : selectedTags()) {
        state.addLastSelectedTag(tag.tagID);
        rows.push_back(tag.object);
    }
    m_selectedMedia = rows.empty() ? store::MediaSet() : store::mediaSet(*context, {store::withAnyTag(rows)});
    m_selectLibrary();
}

TagCommands MRLibraryTagsSource::commands() const
{
    return {*m_environment.library.context(), m_environment.library.state()};
}

void MRLibraryTagsSource::addTag()
{
    m_list->endEditing();
    if (!m_environment.library.isOpenedDatabase()) {
        return;
    }
    const QString title = availableName(base::text("Basic.Untitled.Tag"), m_tags.titles());
    const auto made = commands().addTag(title);
    if (!made) {
        showDatabaseError(made.reason());
        return;
    }
    reload();
    postNotifcationTagsDidUpdated();
    if (const int row = m_tags.indexOfObject(made.value()); row >= 0) {
        m_list->selectRows({row});
        m_list->editRow(row);
    }
}

void MRLibraryTagsSource::editTag()
{
    m_list->endEditing();
    if (const QList<int> rows = m_list->selectedRows(); rows.size() == 1) {
        m_list->editRow(rows.first());
    }
}

void MRLibraryTagsSource::rename(const QString& tagID, const QString& title)
{
    const int row = m_tags.indexOf(tagID);
    if (row < 0 || !m_environment.library.isOpenedDatabase() || !TagCommands::isAcceptableTitle(title) ||
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
    reload();
    postNotifcationTagsDidUpdated();
}

void MRLibraryTagsSource::refuseTitle(const QString& tagID, const QString& title)
{
    m_environment.utilities.alertWithMessageText(base::text("Basic.Alert"), base::text("Basic.OK"), {},
                                                 base::text("Error.Already.Exsts", title));
    if (const int row = m_tags.indexOf(tagID); row >= 0) {
        m_list->editRow(row, title);
    }
}

void MRLibraryTagsSource::tagColor(int choice)
{
    if (!m_environment.library.isOpenedDatabase() || m_list->selectedRows().isEmpty()) {
        return;
    }
    if (choice == kCustomTagColor) {
        kit::ColorPanel& panel = kit::ColorPanel::sharedPanel(*m_list);
        connect(&panel, &kit::ColorPanel::colorDidChange, this, &MRLibraryTagsSource::customColorDidChanged,
                Qt::UniqueConnection);
        panel.setColor(Qt::white);
        panel.open();
        return;
    }
    updateTagColor(labelColorAtIndex(choice));
}

void MRLibraryTagsSource::customColorDidChanged(const QColor& color)
{
    if (isInstalled() && m_environment.library.isOpenedDatabase()) {
        updateTagColor(base::ColorValue::fromColor(color));
    }
}

void MRLibraryTagsSource::updateTagColor(const std::optional<base::ColorValue>& color)
{
    const QList<int> rows = m_list->selectedRows();
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
    m_list->viewport()->update();
    postNotifcationTagsDidUpdated();
}

void MRLibraryTagsSource::deleteTag()
{
    m_list->endEditing();
    const std::vector<TagRecord> tags = selectedTags();
    if (!m_environment.library.isOpenedDatabase() || tags.empty() || m_deletion.isRunning()) {
        return;
    }
    const QString number = QString::number(tags.size());
    const QString question = tags.size() == 1 ? base::text("Message.Delete.Tag", number)
                                              : base::text("Message.Delete.Tags", number);
    if (m_environment.utilities.alertWithMessageText(base::text("Basic.Alert"), base::text("Basic.Delete"),
                                                     base::text("Basic.Cancel"), question) == 1) {
        m_list->clearSelection();
        deleteTags(tags);
    }
}

void MRLibraryTagsSource::deleteTags(const std::vector<TagRecord>& tags)
{
    const auto total = qsizetype(tags.size());
    m_deletion.start({.count = total,
                      .step =
                          [this, tags](qsizetype position) {
                              if (const auto gone = commands().remove(tags.at(std::size_t(position)));
                                  !gone) {
                                  showDatabaseError(gone.reason());
                              }
                          },
                      .sliceEnded =
                          [this, total](qsizetype done) {
                              if (done < total) {
                                  m_progress.report(base::text("Basic.Delete.Tags"), percentOf(done, total));
                              }
                          },
                      .finished =
                          [this](qsizetype) {
                              m_progress.end();
                              reload();
                              postNotifcationTagsDidUpdated();
                          },
                      .pauses = [this] { return m_environment.library.context()->isTidying(); }});
}

bool MRLibraryTagsSource::validate(TagCommand command) const
{
    return m_environment.library.isOpenedDatabase() && !isBusy() && isFirstResponder() &&
           m_list->isVisible() && isTagCommandPossible(command, int(m_list->selectedRows().size()));
}

void MRLibraryTagsSource::run(TagCommand command)
{
    switch (command) {
    case TagCommand::NewTag:
        addTag();
        break;
    case TagCommand::Edit:
        editTag();
        break;
    case TagCommand::Delete:
        deleteTag();
        break;
    case TagCommand::TagColor:
        break;
    }
}

bool MRLibraryTagsSource::validateDrop(const QMimeData& data, int row) const
{
    return isTagDropPossible(isBusy() || m_drop.isRunning(),
                             data.hasFormat(QLatin1String(importing::MR_DRAG_AND_DROP_MEDIA)), row >= 0,
                             int(m_list->selectedRows().size()));
}

void MRLibraryTagsSource::acceptDrop(const QMimeData& data, int row)
{
    const auto drag = importing::mediaDragOf(data);
    store::StoreContext* context = m_environment.library.context();
    if (!context || !drag || !validateDrop(data, row)) {
        return;
    }
    TagLinker linker(*context, m_tags.at(row).object, mediaRows(*context, drag->dragItems), TagDirection::Add,
                     kDropsPerSave);
    m_drop.start(*context, std::move(linker), {}, [this](const TagLinker& done) {
        if (done.failed() > 0) {
            showDatabaseError(done.reason());
        }
        m_counts.reset();
        m_list->viewport()->update();
        m_selectLibrary();
    });
}

void MRLibraryTagsSource::reloadCurrentSelection()
{
    if (isInstalled() && !m_list->selectedRows().isEmpty()) {
        updateSelection();
    }
}

void MRLibraryTagsSource::scrollToTop()
{
    if (!isBusy() && m_list->hasFocus() && m_tags.count() > 0) {
        m_list->scrollToRow(0);
    }
}

void MRLibraryTagsSource::postNotifcationTagsDidUpdated()
{
    m_environment.utilities.postNotification(base::MOSARO_NOTE_UPDATED_MAIN_TAGS);
}

bool MRLibraryTagsSource::isBusy() const
{
    return m_deletion.isRunning() || m_drop.isRunning() ||
           (m_environment.isWindowBusy && m_environment.isWindowBusy());
}

bool MRLibraryTagsSource::isFirstResponder() const
{
    const QWidget* focus = m_list->window()->focusWidget();
    return focus && (focus == m_list || m_list->isAncestorOf(focus));
}

qint64 MRLibraryTagsSource::badge(const TagRecord& tag)
{
    store::StoreContext* context = m_environment.library.context();
    if (!context || !m_environment.defaults.boolean(base::PREFS_GENERAL_SHOW_ITEM_COUNTS)) {
        return 0;
    }
    if (!m_counts) {
        auto counted = store::tagCounts(*context);
        m_counts = counted ? std::move(counted).value() : QHash<store::RowId, qint64>();
    }
    return m_counts->value(tag.object);
}

} // namespace mosaro::organisation
