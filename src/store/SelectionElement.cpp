#include "store/SelectionElement.h"

namespace mosaro::store {

QString SelectionElement::selectionKey() const
{
    static const QLatin1String kColorSuffixes[] = {
        QLatin1String("+BackgroundColor"), QLatin1String("+PrimaryColor"), QLatin1String("+SecondaryColor"),
        QLatin1String("+DetailColor")};
    switch (shape) {
    case Shape::CollectionNode:
    case Shape::SystemNode:
        return id + QLatin1String("+Collection");
    case Shape::TagRow:
        return id + QLatin1String("+Tag");
    case Shape::Colour:
        break;
    }
    return type >= 0 && type < 4 ? id + kColorSuffixes[type] : QString();
}

} // namespace mosaro::store
