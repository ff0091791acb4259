#include "browser/EmptyState.h"

#include "base/Text.h"

namespace mosaro::browser {

using Shape = store::SelectionElement::Shape;

namespace {

QString nothingSelected(int tab)
{
    switch (tab) {
    case 1:
        return base::text("Basic.No.Tag.Selected");
    case 2:
        return base::text("Basic.No.Color.Selected");
    default:
        return base::text("Basic.No.Collection.Selected");
    }
}

} // namespace

EmptyState emptyState(const SelectedCollections& selected, bool listIsEmpty, int tab)
{
    if (selected.empty()) {
        return {false, nothingSelected(tab)};
    }
    const QString noMedia = listIsEmpty ? base::text("Basic.No.Media") : QString();
    if (selected.size() > 1) {
        return {std::nullopt, noMedia};
    }
    const store::SelectionElement& element = selected.front();
    const bool userType = element.type >= store::kTypeCollection;
    if (element.shape == Shape::CollectionNode) {
        if (!userType) {
            return {};
        }
        if (element.type == store::kTypeSmartCollection) {
            return {false, noMedia};
        }
        return {listIsEmpty, {}};
    }
    if (element.shape == Shape::SystemNode && userType) {
        return {};
    }
    return {false, noMedia};
}

} // namespace mosaro::browser
