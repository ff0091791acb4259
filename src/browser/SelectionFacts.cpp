#include "browser/SelectionFacts.h"

#include "base/Text.h"
#include "store/Collections.h"
#include "store/Tags.h"
#include "store/ZNDBManager.h"

namespace mosaro::browser {

using Shape = store::SelectionElement::Shape;

namespace {

template <class T>
QString titleOfRecord(store::ZNDBManager& library, store::RowId row)
{
    const auto record = library.isOpenedDatabase() ? library.context()->object<T>(row) : nullptr;
    return record == nullptr ? QString() : record->title();
}

} // namespace

QString currentCollectionID(const SelectedCollections& selected, store::ZNDBManager& library)
{
    if (selected.size() != 1 || !library.isOpenedDatabase()) {
        return {};
    }
    const store::SelectionElement& element = selected.front();
    const bool unknown =
        element.shape == Shape::SystemNode && !library.state().hasSystemCollection(element.id);
    return unknown ? QString() : element.selectionKey();
}

bool isUserCollection(const SelectedCollections& selected)
{
    return selected.size() == 1 && selected.front().shape == Shape::CollectionNode &&
           selected.front().type == store::kTypeCollection;
}

QString selectedCollectionName(const SelectedCollections& selected, store::ZNDBManager& library)
{
    if (selected.size() != 1) {
        return base::text("Basic.Back");
    }
    const store::SelectionElement& element = selected.front();
    switch (element.shape) {
    case Shape::CollectionNode:
        return titleOfRecord<store::Collections>(library, element.record);
    case Shape::TagRow:
        return titleOfRecord<store::Tags>(library, element.record);
    case Shape::Colour:
        return base::text("Tooltip.Colors");
    case Shape::SystemNode:
        break;
    }
    return element.title;
}

} // namespace mosaro::browser
