#pragma once

#include "browser/SelectionFacts.h"
#include "browser/ui/MRBrowserView.h"
#include "browser/ui/SearchField.h"

#include <QMenu>
#include <QPointer>

namespace mosaro::kit {
class Popover;
}

namespace mosaro::browser {

class MRSearchMedia;

/// The search of the browser: the field in its head line, the menu of choices, and the results in a popover
/// below the field. It runs on Return, never while typing.
class BrowserSearch : public QObject {
    Q_OBJECT

public:
    /// `owner` is the browser.
    BrowserSearch(const BrowserEnvironment& environment, const SelectedCollections& selected, QWidget& owner);
    ~BrowserSearch() override;

    [[nodiscard]] SearchField& field() const { return *m_field; }

    /// The Find command: a new search, or back to the results that are open.
    void findMedia();
    /// A tag above 99 is what to look at, others where to look.
    void selectSearchTemplate(int tag);
    /// Brings menu and query in line with the stored choices and the selection of the sidebar.
    void initializeSearchTemplate();

Q_SIGNALS:
    /// The field gave up the keyboard to the grid.
    void cancelled();
    /// The user chose a hit.
    void chosen(const QString& mediaID, const QString& collectionID);

private:
    [[nodiscard]] bool doCommand(SearchKey key);
    void insertNewline();
    void openPopover();
    void destroyPopover();
    void controlTextDidChange();
    void search(const QString& text);
    void findItemBySearch(const QString& mediaID, const QString& withCollectionID);
    void mediaSelectionDidChange();
    void makeMenu();
    [[nodiscard]] QAction* choice(int tag) const;

    const BrowserEnvironment& m_environment;
    const SelectedCollections& m_selected;
    QWidget& m_owner;
    SearchField* m_field;
    QMenu* m_searchTemplateMenu;
    MRSearchMedia* m_searchMedia;
    QPointer<kit::Popover> m_popover;
};

} // namespace mosaro::browser
