#include "organisation/CollectionMenuRules.h"

#include "base/Text.h"

namespace mosaro::organisation {

namespace {

using enum SidebarCommand;

constexpr int kFirstExportableType = 3;
constexpr int kLastExportableType = 15;

bool isNew(SidebarCommand command)
{
    return command == NewCollection || command == NewSmartCollection || command == NewFolder;
}

MenuVerdict validateForOne(SidebarCommand command, const CollectionNode& node)
{
    if (node.type == 0) {
        return {false, LabelRows::Unchanged};
    }
    if (node.type >= store::kTypeCollection && node.type <= store::kTypeFolder) {
        return {command != Import || node.type != store::kTypeSmartCollection, LabelRows::On};
    }
    const bool isExportable = node.type >= kFirstExportableType && node.type <= kLastExportableType;
    return {command == Export && isExportable, LabelRows::Off};
}

} // namespace

MenuVerdict validateMenuItem(SidebarCommand command, const NodeList& selected)
{
    if (selected.empty()) {
        return {isNew(command), LabelRows::Off};
    }
    if (selected.size() == 1) {
        return validateForOne(command, *selected.front());
    }
    return command == Delete ? MenuVerdict{true, LabelRows::On} : MenuVerdict{false, LabelRows::Unchanged};
}

bool areLabelRowsOn(const NodeList& selected)
{
    bool on = !selected.empty();
    for (const SidebarCommand command :
         {NewCollection, NewSmartCollection, NewFolder, Import, Export, Edit, Delete}) {
        const LabelRows rows = validateMenuItem(command, selected).labelRows;
        on = rows == LabelRows::Unchanged ? on : rows == LabelRows::On;
    }
    return on;
}

QString editTitle(const NodeList& selected)
{
    if (selected.size() != 1 || !selected.front()->isUserNode()) {
        return base::text("CX.Edit");
    }
    const CollectionNode& node = *selected.front();
    return base::text(node.type == store::kTypeSmartCollection ? "CX.Edit.Smart" : "CX.Rename", node.title);
}

QStringList labelsOf(const NodeList& selected)
{
    QStringList labels;
    for (const CollectionNode* node : selected) {
        labels.append(QString::number(node->label));
    }
    labels.removeDuplicates();
    return labels;
}

} // namespace mosaro::organisation
