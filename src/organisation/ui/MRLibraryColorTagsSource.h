#pragma once

#include "organisation/ColorCommands.h"
#include "organisation/ColorReader.h"
#include "organisation/ui/MRLibraryView.h"
#include "organisation/ui/SidebarSource.h"

#include <QObject>

namespace mosaro::organisation {

class ColorMenu;
class ColorSourceView;
class MRColorBrowserView;

/// The colours of the sidebar: a grid of swatches, their like marks, and the items that have the selected
/// ones.
class MRLibraryColorTagsSource : public QObject, public SidebarSource {
    Q_OBJECT

public:
    /// `selectLibrary` is called when the set of selected items changed or was read again.
    MRLibraryColorTagsSource(const SidebarEnvironment& environment, QWidget& sidebar,
                             std::function<void()> selectLibrary);
    ~MRLibraryColorTagsSource() override;

    /// Reads the colours, which are shown a moment later; while the tab is not on show, as soon as it is.
    void reload() override;
    /// While the colours are being read this waits for them.
    void updateSelection() override;
    [[nodiscard]] std::vector<store::SelectionElement> selectedCollection() const override;
    [[nodiscard]] QMenu& contextualMenu() override;
    [[nodiscard]] QWidget& contentView() override;

    /// Whether a command of the menu is possible now.
    [[nodiscard]] bool validate(ColorCommand command) const;
    void likeColor() { markSelected(true); }
    void unlikeColor() { markSelected(false); }
    /// Opens the colour panel, with the colour of the one selected swatch.
    void showColorInColorPicker();
    /// Keeps a command's place; there are no tabs yet.
    void openInNewTab() {}

private:
    void observeBus();
    void connectView();
    void run(ColorCommand command);
    void show(ColorGroups groups);
    void browserSelectionDidChange();
    void restoreSelection();
    void selectNothing();
    void updateImageBrowserViewTitle();
    void scrollToTop();
    void markSelected(bool isLike);
    [[nodiscard]] const MRColorTagItem* onlySelected() const;
    [[nodiscard]] LikeMarks selectedLikeMarks() const;
    [[nodiscard]] bool isWindowBusy() const;

    SidebarEnvironment m_environment;
    std::function<void()> m_selectLibrary;
    ColorGroups m_groups;
    ColorReader m_reader;
    OrphanedColors m_orphans;
    SlicedRun m_marking;
    MRColorBrowserView* m_browserView; ///< Child of the content view.
    ColorSourceView* m_view;           ///< Child of the sidebar.
    ColorMenu* m_menu;                 ///< Child of the sidebar.
    bool m_isStale = false;            ///< A reload waits for the tab to be shown.
};

} // namespace mosaro::organisation
