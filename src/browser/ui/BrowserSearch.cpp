#include "browser/ui/BrowserSearch.h"

#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "browser/ui/MRSearchMedia.h"
#include "kit/Popover.h"

#include <QActionGroup>
#include <span>

namespace mosaro::browser {

namespace {

using namespace organisation;

constexpr int kFirstTargetTag = 100;

struct Choice {
    int tag;
    const char* title;
};
constexpr Choice kTypes[] = {{kSearchAllCollections, "Basic.All"},
                             {kSearchCurrentCollection, "Basic.Current"}};
constexpr Choice kTargets[] = {{kSearchTitle, "Basic.Title"},
                               {kSearchCopyright, "Basic.Copyright"},
                               {kSearchNote, "Basic.Note"},
                               {kSearchURL, "Basic.URL"}};

} // namespace

BrowserSearch::BrowserSearch(const BrowserEnvironment& environment, const SelectedCollections& selected,
                             QWidget& owner)
    : m_environment(environment), m_selected(selected), m_owner(owner), m_field(new SearchField(&owner)),
      m_searchTemplateMenu(new QMenu(m_field)), m_searchMedia(new MRSearchMedia(environment.library, owner))
{
    makeMenu();
    m_field->setTemplateMenu(*m_searchTemplateMenu);
    m_field->setKeyHandler([this](SearchKey key) { return doCommand(key); });
    connect(m_field, &SearchField::textChanged, this, &BrowserSearch::controlTextDidChange);
    connect(m_searchMedia, &MRSearchMedia::mediaSelectionDidChange, this,
            &BrowserSearch::mediaSelectionDidChange);
    initializeSearchTemplate();
}

/// The view of the results lies in the popover and refers to them.
BrowserSearch::~BrowserSearch()
{
    delete m_popover.data();
}

void BrowserSearch::makeMenu()
{
    const auto add = [this](std::span<const Choice> choices) {
        auto* group = new QActionGroup(m_searchTemplateMenu);
        for (const Choice& choice : choices) {
            QAction* action = m_searchTemplateMenu->addAction(base::text(choice.title));
            action->setCheckable(true);
            action->setData(choice.tag);
            group->addAction(action);
            connect(action, &QAction::triggered, this,
                    [this, tag = choice.tag] { selectSearchTemplate(tag); });
        }
    };
    add(kTypes);
    m_searchTemplateMenu->addSeparator();
    add(kTargets);
}

QAction* BrowserSearch::choice(int tag) const
{
    for (QAction* action : m_searchTemplateMenu->actions()) {
        if (!action->isSeparator() && action->data().toInt() == tag) {
            return action;
        }
    }
    return nullptr;
}

void BrowserSearch::selectSearchTemplate(int tag)
{
    m_environment.defaults.updateUserDefaults(
        tag >= kFirstTargetTag ? base::PREFS_GLOBAL_SEARCH_TARGET : base::PREFS_GLOBAL_SEARCH_TYPE, tag);
    initializeSearchTemplate();
}

void BrowserSearch::initializeSearchTemplate()
{
    const base::ZNUserDefaults& defaults = m_environment.defaults;
    const bool hasCurrent = isUserCollection(m_selected);
    const int storedType = int(defaults.integer(base::PREFS_GLOBAL_SEARCH_TYPE, kSearchAllCollections));
    const int type = hasCurrent ? storedType : kSearchAllCollections;
    const int target = int(defaults.integer(base::PREFS_GLOBAL_SEARCH_TARGET, kSearchTitle));
    m_searchMedia->setSearchType(type);
    m_searchMedia->setSearchTarget(target);
    choice(kSearchCurrentCollection)->setEnabled(hasCurrent);
    if (QAction* action = choice(type)) {
        action->setChecked(true);
    }
    if (QAction* action = choice(target)) {
        action->setChecked(true);
        m_field->setPlaceholder(action->text());
    }
}

void BrowserSearch::findMedia()
{
    if (!m_field->isVisible()) {
        return;
    }
    m_field->setFocus(Qt::ShortcutFocusReason);
    if (m_popover == nullptr) {
        m_field->setText(QString());
    }
}

bool BrowserSearch::doCommand(SearchKey key)
{
    switch (key) {
    case SearchKey::Cancel:
        destroyPopover();
        Q_EMIT cancelled();
        return true;
    case SearchKey::Up:
    case SearchKey::Down:
        if (m_searchMedia->count() == 0) {
            return false;
        }
        m_searchMedia->moveSelection(key == SearchKey::Up ? -1 : 1);
        return true;
    case SearchKey::Return:
        insertNewline();
        return true;
    }
    return false;
}

void BrowserSearch::insertNewline()
{
    const QString text = m_field->text();
    const bool isCurrent = m_searchMedia->searchKeyword() == text;
    if (isCurrent && m_searchMedia->selectedHit()) {
        mediaSelectionDidChange();
    } else if (text.isEmpty()) {
        m_searchMedia->cleanUp();
        destroyPopover();
    } else {
        openPopover();
        m_field->setFocus();
        m_field->placeCaretAtEnd();
        if (!isCurrent) {
            search(text);
        }
    }
}

/// On a selection that is no single collection a search of the current one covers the whole library.
void BrowserSearch::search(const QString& text)
{
    initializeSearchTemplate();
    if (m_searchMedia->request().searchType == kSearchCurrentCollection) {
        m_searchMedia->setSearchCollectionID(m_selected.back().id);
    }
    m_searchMedia->setSearchKeyword(text);
}

void BrowserSearch::openPopover()
{
    if (m_popover == nullptr) {
        m_popover = new kit::Popover(*m_field, m_searchMedia->view());
        connect(m_popover, &kit::Popover::closed, this, &BrowserSearch::destroyPopover);
    }
    m_popover->open();
}

/// Ends the search, however it ends: the view goes back to its owner and the field is emptied.
void BrowserSearch::destroyPopover()
{
    if (m_popover != nullptr) {
        QWidget* view = m_popover->takeContent();
        view->setParent(&m_owner);
        view->hide();
        m_popover->deleteLater();
        m_popover->hide();
        m_popover = nullptr;
    }
    m_searchMedia->cleanUp();
    m_field->setText(QString());
}

void BrowserSearch::controlTextDidChange()
{
    if (m_field->text().isEmpty() && m_popover != nullptr) {
        destroyPopover();
    }
}

void BrowserSearch::mediaSelectionDidChange()
{
    if (const auto hit = m_searchMedia->selectedHit()) {
        findItemBySearch(hit->mediaID, hit->collectionID);
    }
}

void BrowserSearch::findItemBySearch(const QString& mediaID, const QString& withCollectionID)
{
    if (mediaID.isEmpty() || withCollectionID.isEmpty()) {
        return;
    }
    destroyPopover();
    Q_EMIT chosen(mediaID, withCollectionID);
}

} // namespace mosaro::browser
