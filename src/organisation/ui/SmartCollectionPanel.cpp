#include "organisation/ui/SmartCollectionPanel.h"

#include "base/ZNUtilities.h"
#include "kit/Sheet.h"
#include "organisation/SmartRules.h"
#include "organisation/ui/MRSmartRuleEditor.h"

namespace mosaro::organisation {

namespace {

void runSheet(const SidebarEnvironment& environment, QWidget& window, const SmartCollectionRequest& request,
              const std::function<void(const QVariantMap&)>& ended)
{
    auto* sheet = new kit::Sheet(window);
    auto* editor =
        new MRSmartRuleEditor({environment.library, environment.defaults}, environment.utilities.bus(),
                              request.title, request.condition, request.rules, request.isEdit);
    QObject::connect(editor, &MRSmartRuleEditor::closeSheet, sheet, [sheet, editor, ended](int returnCode) {
        const QVariantMap result = editor->result();
        sheet->endSheet();
        sheet->deleteLater();
        if (returnCode == kSmartSheetSaved && isValidSmartCollection(result)) {
            ended(result);
        }
    });
    sheet->setContent(editor);
    sheet->showSheet();
}

} // namespace

SmartCollectionSheet smartCollectionSheet(const SidebarEnvironment& environment, QWidget& sidebar)
{
    return [environment, &sidebar](const SmartCollectionRequest& request,
                                   const std::function<void(const QVariantMap&)>& ended) {
        QWidget* window = sidebar.window();
        if (!kit::Sheet::isAttachedTo(*window)) {
            runSheet(environment, *window, request, ended);
        }
    };
}

} // namespace mosaro::organisation
