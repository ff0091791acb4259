#include "organisation/ui/MRTagController.h"

#include "base/Notifications.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "kit/Look.h"
#include "organisation/DatabaseError.h"
#include "organisation/TagCommands.h"
#include "organisation/ui/TagCheckList.h"
#include "store/ZNDBManager.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace mosaro::organisation {

namespace {

constexpr int kRemoveTagsSound = 2;
constexpr int kLeftMargin = 12; ///< Where the boxes of the list begin, too.
constexpr int kButtonPadding = 11;

} // namespace

MRTagController::MRTagController(const TagPanelEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_tagLabel(new QLabel(base::text("Label.New.Tag"), this)),
      m_tagField(new QLineEdit(this)), m_tagAddBtn(new QPushButton(base::text("Basic.Add"), this)),
      m_tagTableView(new TagCheckList(m_tags, base::text("Message.No.Tags"), this)),
      m_run(environment.progress)
{
    layOut();
    connect(&m_tags, &TagCheckModel::toggled, this, &MRTagController::toggleTag);
    connect(m_tagAddBtn, &QPushButton::clicked, this, &MRTagController::addNewTag);
    connect(m_tagField, &QLineEdit::returnPressed, this, &MRTagController::addNewTag);
    connect(m_tagField, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_tagAddBtn->setEnabled(!text.isEmpty()); });
    environment.utilities.bus().observe(base::MOSARO_NOTE_UPDATED_MAIN_TAGS, this,
                                        [this](const QVariant&) { reload(); });
    setSelectedItems({});
}

MRTagController::~MRTagController() = default;

void MRTagController::layOut()
{
    m_tagLabel->setBuddy(m_tagField);
    m_tagField->setPlaceholderText(base::text("Basic.Enter.New.Tag"));
    m_tagField->setAccessibleName(base::text("Label.New.Tag"));
    m_tagField->setToolTip(base::text("Tooltip.New.Tag"));
    m_tagAddBtn->setToolTip(base::text("Tooltip.Add.Tag"));
    m_tagAddBtn->setAutoDefault(false);
    // Narrower than buttons are, so that the field is wide enough for a name.
    m_tagAddBtn->setFixedWidth(m_tagAddBtn->fontMetrics().horizontalAdvance(m_tagAddBtn->text()) +
                               2 * kButtonPadding);
    m_tagTableView->setAccessibleName(base::text("Accessible.Tags.Of.Selection"));
    m_tagTableView->setToolTip(base::text("Tooltip.Tags.Of.Selection"));

    auto* line = new QHBoxLayout;
    line->setContentsMargins(kLeftMargin, kit::metric::gap, kit::metric::gap, kit::metric::gap);
    line->setSpacing(kit::metric::gap);
    line->addWidget(m_tagLabel);
    line->addWidget(m_tagField, 1);
    line->addWidget(m_tagAddBtn);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(line);
    column->addWidget(m_tagTableView, 1);
}

bool MRTagController::canAct() const
{
    return m_environment.library.isOpenedDatabase() && !m_selectedItems.empty() && !m_run.isRunning();
}

void MRTagController::setSelectedItems(std::vector<store::RowId> items)
{
    m_selectedItems = std::move(items);
    m_tagField->setEnabled(!m_selectedItems.empty());
    reload();
}

void MRTagController::reload()
{
    store::StoreContext* context = m_environment.library.context();
    m_list.clear();
    if (const auto read = context ? m_list.reload(*context) : base::Result<void>(); !read) {
        showDatabaseError(read.reason());
    }
    m_tags.setTags(context ? assignedTags(*context, m_list, m_selectedItems) : std::vector<AssignedTag>());
    m_tags.setEnabled(canAct());
    emptyField();
    if (!m_addedNewTag.isEmpty()) {
        const qsizetype row = m_list.titles().indexOf(std::exchange(m_addedNewTag, {}));
        m_tagTableView->scrollTo(m_tags.index(int(row)));
    }
}

void MRTagController::emptyField()
{
    m_tagField->clear();
    m_tagAddBtn->setEnabled(false);
}

void MRTagController::makeFirstResponder()
{
    QWidget* first = m_tagField->isEnabled() ? static_cast<QWidget*>(m_tagField) : m_tagTableView;
    first->setFocus();
}

void MRTagController::toggleTableViewElements(bool enabled)
{
    m_tags.setEnabled(enabled);
    m_tagField->setReadOnly(!enabled);
}

void MRTagController::toggleTag(int row, bool on)
{
    if (canAct()) {
        startRun(m_tags.at(row).tag.object, on ? TagDirection::Add : TagDirection::Remove,
                 base::text("Basic.Update.Tag"));
    }
}

void MRTagController::startRun(store::RowId tag, TagDirection direction, const QString& title)
{
    store::StoreContext& context = *m_environment.library.context();
    const bool isNewTag = !m_addedNewTag.isEmpty();
    toggleTableViewElements(false);
    m_run.start(context, TagLinker(context, tag, m_selectedItems, direction), title,
                [this, isNewTag](const TagLinker& linker) { runDidEnd(linker, isNewTag); });
}

void MRTagController::runDidEnd(const TagLinker& linker, bool isNewTag)
{
    if (linker.failed() > 0) {
        showDatabaseError(linker.reason());
    }
    toggleTableViewElements(true);
    reload();
    if (linker.changed() > 0 || isNewTag) {
        Q_EMIT tagDidChanged();
        m_environment.utilities.postNotification(base::MOSARO_NOTI_UPDATE_TAGS);
        if (linker.direction() == TagDirection::Remove) {
            m_environment.utilities.playSoundEffect(kRemoveTagsSound, m_environment.defaults);
        }
    }
    if (isNewTag) {
        m_tagField->setFocus();
    }
}

void MRTagController::addNewTag()
{
    const QString title = m_tagField->text();
    if (!canAct() || title.isEmpty()) {
        return;
    }
    store::StoreContext& context = *m_environment.library.context();
    if (!TagCommands::isAcceptableTitle(title)) {
        // Nothing but the emptied field: no name was meant.
    } else if (m_list.isTitleTaken(title)) {
        m_environment.utilities.alertWithMessageText(base::text("Basic.Alert"), base::text("Basic.OK"), {},
                                                     titleTakenText(title));
    } else if (const auto made = TagCommands(context, m_environment.library.state()).addTag(title); !made) {
        showDatabaseError(made.reason());
    } else {
        m_addedNewTag = title;
        startRun(made.value(), TagDirection::Add, base::text("Basic.Add.New.Tag"));
        return;
    }
    emptyField();
    m_tagField->setFocus();
}

} // namespace mosaro::organisation
