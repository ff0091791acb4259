#pragma once

#include "organisation/TagRun.h"
#include "organisation/ui/TagCheckModel.h"

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace mosaro::base {
class ZNUserDefaults;
class ZNUtilities;
} // namespace mosaro::base
namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::organisation {

class TagCheckList;

/// What the panel needs from its surroundings; all outlive it.
struct TagPanelEnvironment {
    store::ZNDBManager& library;
    base::ZNUserDefaults& defaults;
    base::ZNUtilities& utilities;
    base::ProgressSink* progress = nullptr; ///< The window's progress panel; null: none is shown.
};

/// The panel that assigns tags to the selected items: a box for each tag, which says whether all items, some
/// or none have it, and a field for a new one. It keeps no selection of its own: its owner hands over the
/// rows of the items on each change.
class MRTagController : public QWidget {
    Q_OBJECT

public:
    explicit MRTagController(const TagPanelEnvironment& environment, QWidget* parent = nullptr);
    ~MRTagController() override;

    void setSelectedItems(std::vector<store::RowId> items);
    void reload();
    /// The field for a new tag takes the keyboard; the list does when the field can not.
    void makeFirstResponder();
    /// A run goes on.
    [[nodiscard]] bool isBusy() const { return m_run.isRunning(); }

Q_SIGNALS:
    /// Tags of the selected items have changed; the rest of the program hears of it by a notification next.
    void tagDidChanged();

private:
    void layOut();
    void toggleTag(int row, bool on);
    void addNewTag();
    void startRun(store::RowId tag, TagDirection direction, const QString& title);
    void runDidEnd(const TagLinker& linker, bool isNewTag);
    void toggleTableViewElements(bool enabled);
    void emptyField();
    [[nodiscard]] bool canAct() const;

    TagPanelEnvironment m_environment;
    std::vector<store::RowId> m_selectedItems;
    TagList m_list;
    TagCheckModel m_tags;
    QString m_addedNewTag; ///< The next reload scrolls to it.
    QLabel* m_tagLabel;
    QLineEdit* m_tagField;
    QPushButton* m_tagAddBtn;
    TagCheckList* m_tagTableView;
    TagRun m_run;
};

} // namespace mosaro::organisation
