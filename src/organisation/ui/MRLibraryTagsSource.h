#pragma once

#include "organisation/SlicedRun.h"
#include "organisation/TagCommands.h"
#include "organisation/TagRun.h"
#include "organisation/ui/MRLibraryView.h"
#include "organisation/ui/SidebarSource.h"
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

    void addTag();
    void editTag();
    void deleteTag();
    /// One of the choices of TagColors.h, for all selected tags.
    void tagColor(int choice);
    /// Whether a command of a menu is possible now.
    [[nodiscard]] bool validate(TagCommand command) const;

private:
    void connectList();
    void observeBus();
    void run(TagCommand command);
    [[nodiscard]] std::vector<TagRecord> selectedTags() const;
    void restoreSelectedTags();
    void tableViewSelectionDidChange();
    void rename(const QString& tagID, const QString& title);
    void refuseTitle(const QString& tagID, const QString& title);
    void customColorDidChanged(const QColor& color);
    void updateTagColor(const std::optional<base::ColorValue>& color);
    void deleteTags(const std::vector<TagRecord>& tags);
    [[nodiscard]] bool validateDrop(const QMimeData& data, int row) const;
    void acceptDrop(const QMimeData& data, int row);
    void reloadCurrentSelection();
    void scrollToTop();
    void postNotifcationTagsDidUpdated();
    [[nodiscard]] bool isBusy() const;
    [[nodiscard]] bool isFirstResponder() const;
    [[nodiscard]] qint64 badge(const TagRecord& tag);
    [[nodiscard]] TagCommands commands() const;

    SidebarEnvironment m_environment;
    std::function<void()> m_selectLibrary;
    TagList m_tags;
    TagListModel m_model;
    MRLibraryTableView* m_list;                          ///< Child of the sidebar.
    TagMenu* m_menu;                                     ///< Child of the sidebar.
    std::optional<QHash<store::RowId, qint64>> m_counts; ///< Asked for when the first badge is drawn.
    RunProgress m_progress;
    SlicedRun m_deletion;
    TagRun m_drop;
};

} // namespace mosaro::organisation
