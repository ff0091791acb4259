#include "organisation/ui/MRLibraryColorTagsSource.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "kit/ColorPanel.h"
#include "organisation/ui/ColorMenu.h"
#include "organisation/ui/ColorSourceView.h"
#include "organisation/ui/MRColorBrowserView.h"
#include "store/ZNDBManager.h"

#include <QPainter>

namespace mosaro::organisation {

namespace {

/// With some air around it, as the drawn icons have.
QIcon menuIcon(const QImage& color)
{
    QPixmap icon(color.size());
    icon.fill(Qt::transparent);
    QPainter(&icon).drawImage(icon.rect().adjusted(4, 4, -4, -4), color);
    return icon;
}

} // namespace

MRLibraryColorTagsSource::MRLibraryColorTagsSource(const SidebarEnvironment& environment, QWidget& sidebar,
                                                   std::function<void()> selectLibrary)
    : m_environment(environment), m_selectLibrary(std::move(selectLibrary)),
      m_reader(environment.library, [this](ColorGroups groups) { show(std::move(groups)); }),
      m_orphans(environment.library), m_browserView(new MRColorBrowserView(m_groups)),
      m_view(new ColorSourceView(*m_browserView, environment.defaults, &sidebar)),
      m_menu(new ColorMenu({[this](ColorCommand command) { return validate(command); },
                            [this] { return selectedLikeMarks(); },
                            [this] {
                                const MRColorTagItem* item = onlySelected();
                                return item ? menuIcon(item->colorAsImage()) : QIcon();
                            }},
                           &sidebar))
{
    updateImageBrowserViewTitle();
    connectView();
    observeBus();
}

MRLibraryColorTagsSource::~MRLibraryColorTagsSource()
{
    // The view is the sidebar's child and may outlive the colours by a moment.
    m_browserView->disconnect(this);
    delete m_view;
}

void MRLibraryColorTagsSource::connectView()
{
    connect(m_browserView, &kit::GridView::selectionChanged, this,
            &MRLibraryColorTagsSource::browserSelectionDidChange);
    connect(m_browserView, &kit::GridView::activated, this,
            &MRLibraryColorTagsSource::showColorInColorPicker);
    connect(m_browserView, &kit::GridView::contextMenuRequested, this,
            [this](int index, const QPoint& position) {
                if (index >= 0 && !m_browserView->selectionIndexes().isEmpty()) {
                    m_menu->popup(position);
                }
            });
    connect(m_view, &ColorSourceView::optionsChanged, this, &MRLibraryColorTagsSource::reload);
    connect(m_menu, &ColorMenu::willOpen, m_browserView, qOverload<>(&QWidget::setFocus));
    connect(m_menu, &ColorMenu::chosen, this, &MRLibraryColorTagsSource::run);
}

void MRLibraryColorTagsSource::observeBus()
{
    base::NotificationBus& bus = m_environment.utilities.bus();
    bus.observe(base::MOSARO_NOTI_SHOW_COLOR_CODE_CHANGED, this,
                [this](const QVariant&) { updateImageBrowserViewTitle(); });
    bus.observe(base::MOSARO_NOTI_RELOAD_CURRENT_SELECTION, this, [this](const QVariant&) {
        if (isInstalled() && !m_browserView->selectionIndexes().isEmpty()) {
            updateSelection();
        }
    });
    bus.observe(base::MSARO_NOTI_RELOAD_ALL_COLORS, this, [this](const QVariant&) { reload(); });
    bus.observe(base::MOSARO_NOTI_TOGGLE_COLOR_SOURCE_VIEW, this, [this](const QVariant& hides) {
        if (isInstalled()) {
            m_browserView->setVisible(!hides.toBool());
        }
    });
    bus.observe(base::MOSARO_NOTI_SCROLL_TO_TOP, this, [this](const QVariant&) { scrollToTop(); });
}

QMenu& MRLibraryColorTagsSource::contextualMenu()
{
    return *m_menu;
}

QWidget& MRLibraryColorTagsSource::contentView()
{
    return *m_view;
}

void MRLibraryColorTagsSource::reload()
{
    if (!m_environment.library.isOpenedDatabase()) {
        return;
    }
    m_isStale = !isInstalled();
    if (!m_isStale) {
        m_reader.start(ColorViewOptions::read(m_environment.defaults));
    }
}

void MRLibraryColorTagsSource::show(ColorGroups groups)
{
    m_isStale = !isInstalled(); // The tab was left meanwhile.
    if (m_isStale) {
        return;
    }
    m_groups = std::move(groups);
    m_orphans.collect(m_groups.orphans());
    updateImageBrowserViewTitle();
    m_browserView->reloadColors();
    m_browserView->show();
    restoreSelection();
}

void MRLibraryColorTagsSource::restoreSelection()
{
    const std::vector<int> positions = m_environment.library.state().lastSelectedColorPositions();
    if (positions.empty() || positions.back() >= int(m_groups.colors().size())) {
        m_browserView->scrollToTop();
        selectNothing();
        return;
    }
    kit::GridSelection selection;
    for (const int position : positions) {
        selection.add({position, position});
    }
    m_browserView->setSelectionIndexes(selection);
    m_browserView->scrollIndexToVisible(selection.first());
}

void MRLibraryColorTagsSource::updateSelection()
{
    if (m_isStale) {
        reload();
        return;
    }
    if (m_reader.isRunning()) {
        return;
    }
    const kit::GridSelection selection = m_browserView->selectionIndexes();
    if (selection.isEmpty()) {
        selectNothing();
        return;
    }
    browserSelectionDidChange();
    m_browserView->scrollIndexToVisible(selection.first());
}

void MRLibraryColorTagsSource::selectNothing()
{
    m_selectedMedia = {};
    m_selectLibrary();
}

void MRLibraryColorTagsSource::browserSelectionDidChange()
{
    if (!m_environment.library.isOpenedDatabase()) {
        return;
    }
    std::vector<int> positions;
    std::vector<store::RowId> rows;
    m_browserView->selectionIndexes().forEach([&](int index) {
        positions.push_back(index);
        rows.push_back(m_groups.color(index).row());
    });
    m_environment.library.state().addLastSelectedColorIndex(positions);
    const MRColorTagItem* item = onlySelected();
    if (item) {
        m_browserView->scrollIndexToVisible(positions.front());
        if (kit::ColorPanel* panel = kit::ColorPanel::existing()) {
            panel->setColor(item->colorValue());
        }
    }
    m_selectedMedia = {};
    // Nobody asks for the items of a tab that is not on show, and showing it runs the selection again.
    if (isInstalled() && !rows.empty()) {
        m_selectedMedia = store::itemsOfColors(*m_environment.library.context(), rows);
    }
    m_selectLibrary();
    if (!item) {
        kit::ColorPanel::closeShared();
    }
}

std::vector<store::SelectionElement> MRLibraryColorTagsSource::selectedCollection() const
{
    std::vector<store::SelectionElement> elements;
    m_browserView->selectionIndexes().forEach([&](int index) {
        const MRColorTagItem& item = m_groups.colors()[size_t(index)];
        elements.push_back({.shape = store::SelectionElement::Shape::Colour,
                            .id = item.itemID(),
                            .type = int(item.colorType()),
                            .title = item.colorAsHex(),
                            .record = item.row()});
    });
    return elements;
}

const MRColorTagItem* MRLibraryColorTagsSource::onlySelected() const
{
    const kit::GridSelection& selection = m_browserView->selectionIndexes();
    return selection.count() == 1 ? &m_groups.colors()[size_t(selection.first())] : nullptr;
}

LikeMarks MRLibraryColorTagsSource::selectedLikeMarks() const
{
    bool anyLiked = false;
    bool anyUnliked = false;
    m_browserView->selectionIndexes().forEach(
        [&](int index) { (m_groups.colors()[size_t(index)].isLike() ? anyLiked : anyUnliked) = true; });
    return likeMarks(anyLiked, anyUnliked);
}

bool MRLibraryColorTagsSource::isWindowBusy() const
{
    return m_environment.isWindowBusy && m_environment.isWindowBusy();
}

bool MRLibraryColorTagsSource::validate(ColorCommand command) const
{
    const bool hasKeyboard = m_browserView->window()->focusWidget() == m_browserView;
    return hasKeyboard && m_browserView->isVisible() && !isWindowBusy() && !m_marking.isRunning() &&
           isColorCommandPossible(command, m_browserView->selectionIndexes().count());
}

void MRLibraryColorTagsSource::run(ColorCommand command)
{
    switch (command) {
    case ColorCommand::OpenInNewTab:
        openInNewTab();
        break;
    case ColorCommand::ShowColorInColorPicker:
        showColorInColorPicker();
        break;
    case ColorCommand::LikeColor:
        likeColor();
        break;
    case ColorCommand::UnlikeColor:
        unlikeColor();
        break;
    }
}

void MRLibraryColorTagsSource::showColorInColorPicker()
{
    kit::ColorPanel& panel = kit::ColorPanel::sharedPanel(*m_view);
    if (const MRColorTagItem* item = onlySelected()) {
        panel.setColor(item->colorValue());
    }
    panel.open();
}

/// A colour that is no longer liked stays on show, also among liked ones only, until the next reload.
void MRLibraryColorTagsSource::markSelected(bool isLike)
{
    if (!m_environment.library.isOpenedDatabase()) {
        return;
    }
    // The list may be read anew while the run goes on.
    struct Marked {
        int position;
        MRColorTagItem item;
    };
    const auto marked = std::make_shared<std::vector<Marked>>();
    m_browserView->selectionIndexes().forEach([&](int index) {
        marked->push_back({index, m_groups.color(index)});
    });
    const auto step = [this, marked, isLike](qsizetype number) {
        auto& [position, item] = (*marked)[size_t(number)];
        item.setIsLike(isLike);
        const bool isThere = size_t(position) < m_groups.colors().size();
        if (isThere && m_groups.color(position).row() == item.row()) {
            m_groups.color(position) = item;
        }
    };
    const auto sliceEnded = [this](qsizetype) {
        m_browserView->viewport()->update();
        if (m_reader.isRunning()) { // What is being read may be older than the marks.
            reload();
        }
    };
    m_marking.start({.count = qsizetype(marked->size()), .step = step, .sliceEnded = sliceEnded});
}

void MRLibraryColorTagsSource::updateImageBrowserViewTitle()
{
    const base::ZNUserDefaults& defaults = m_environment.defaults;
    m_browserView->setCellOptions({.titles = defaults.boolean(base::PREFS_GENERAL_SHOW_COLOR_CODE),
                                   .counts = defaults.boolean(base::PREFS_GENERAL_SHOW_ITEM_COUNTS)});
}

void MRLibraryColorTagsSource::scrollToTop()
{
    if (!isWindowBusy() && m_browserView->hasFocus()) {
        m_browserView->scrollToTop();
    }
}

} // namespace mosaro::organisation
