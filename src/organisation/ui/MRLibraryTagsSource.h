#pragma once

#include "organisation/TagRun.h"
#include "organisation/ui/MRLibraryView.h"
#include "organisation/ui/SidebarSource.h"
#include "organisation/ui/TagChanges.h"
#include "organisation/ui/TagListModel.h"

#include <QHash>

namespace mosaro::organisation {

class MRLibraryTableView;
class TagMenu;

/// The tags of the sidebar: one flat list in alphabetical order, its commands, items dropped onto a tag, and
/// the items of what is selected.
class MRLibraryTagsSource : public QObject, public SidebarSource {
    Q_OBJECT

public:
    /// `selectLibrary` is called when the set of selected items changed or was read again.
    MRLibraryTagsSource(const SidebarEnvironment& environment, QWidget& sidebar,
                        std::function<void()> selectLibrary);
    ~MRLibraryTagsSource() override;

    // The contract of every source.
    void reload() override;
    void updateSelection() override;
    [[nodiscard]] std::vector<store::SelectionElement> selectedCollection() const override;
    [[nodiscard]] QMenu& contextualMenu() override;
    [[nodiscard]] QWidget& contentView() override;

    void addTag() { m_changes.addTag(); }
    void editTag();
    void deleteTag() { m_changes.deleteTag(); }
    /// One of the choices of TagColors.h, for all selected tags.
    void tagColor(int choice) { m_changes.tagColor(choice); }
    /// Whether a command of a menu is possible now.
    [[nodiscard]] bool validate(TagCommand command) const;

    /// In the order of the rows.
    [[nodiscard]] std::vector<TagRecord> selectedTags() const;
    void postNotifcationTagsDidUpdated();

private:
    void connectList();
    void observeBus();
    void run(TagCommand command);
    void restoreSelectedTags();
    void tableViewSelectionDidChange();
    [[nodiscard]] bool validateDrop(const QMimeData& data, int row) const;
    void acceptDrop(const QMimeData& data, int row);
    void reloadCurrentSelection();
    void scrollToTop();
    [[nodiscard]] bool isBusy() const;
    [[nodiscard]] bool isFirstResponder() const;
    [[nodiscard]] qint64 badge(const TagRecord& tag);

    SidebarEnvironment m_environment;
    std::function<void()> m_selectLibrary;
    TagList m_tags;
    TagListModel m_model;
    MRLibraryTableView* m_list;                          ///< Child of the sidebar.
    TagMenu* m_menu;                                     ///< Child of the sidebar.
    std::optional<QHash<store::RowId, qint64>> m_counts; ///< Asked for when the first badge is drawn.
    TagChanges m_changes;
    TagRun m_drop;
};

} // namespace mosaro::organisation
