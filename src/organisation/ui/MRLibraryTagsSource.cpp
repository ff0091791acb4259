#include "organisation/ui/MRLibraryTagsSource.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "import/MediaDrag.h"
#include "organisation/DatabaseError.h"
#include "organisation/TagColors.h"
#include "organisation/ui/MRLibraryTableView.h"
#include "organisation/ui/TagCell.h"
#include "organisation/ui/TagMenu.h"
#include "store/TagLinks.h"
#include "store/ZNDBManager.h"

#include <QMimeData>
#include <QScrollBar>
#include <QSet>
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
      m_changes(*this, m_environment, *m_list, m_tags), m_drop(environment.progress)
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
    connect(&m_model, &TagListModel::titleEdited, &m_changes, &TagChanges::rename);
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
    const QStringList remembered = m_environment.library.state().lastSelectedTags();
    const QSet<QString> selected(remembered.begin(), remembered.end());
    QList<int> rows;
    for (int row = 0; row < m_tags.count(); ++row) {
        if (selected.contains(m_tags.at(row).tagID)) {
            rows.append(row);
        }
    }
    m_list->selectRows(rows);
    if (!rows.isEmpty()) {
        m_list->scrollToRow(rows.first());
    }
    // While the tab is not on show nobody asks for its items; showing it asks for them anew.
    if (isInstalled()) {
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
    QStringList tagIDs;
    std::vector<store::RowId> rows;
    for (const TagRecord& tag : selectedTags()) {
        tagIDs.append(tag.tagID);
        rows.push_back(tag.object);
    }
    m_environment.library.state().setLastSelectedTags(tagIDs);
    m_selectedMedia = rows.empty() ? store::MediaSet() : store::mediaSet(*context, {store::withAnyTag(rows)});
    m_selectLibrary();
}

void MRLibraryTagsSource::editTag()
{
    m_list->endEditing();
    if (const QList<int> rows = m_list->selectedRows(); rows.size() == 1) {
        m_list->editRow(rows.first());
    }
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
    return m_changes.isRunning() || m_drop.isRunning() ||
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
