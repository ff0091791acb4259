#include "store/LibraryState.h"

#include "base/PropertyList.h"

#include "FuzzInput.h"

using namespace mosaro;

namespace {

// A library may come from anyone, with values of other types than its state has under its keys.
const fuzz::Target target("LibraryState", [](const QByteArray& bytes) {
    const base::Result<QVariant> record = base::readPropertyList(bytes);
    store::LibraryState state(record ? record.value().toMap() : QVariantMap());
    state.addExpandedCollection(QStringLiteral("a"));
    state.addLastSelectedTag(QStringLiteral("b"));
    state.addLastSelectedCollection(QStringLiteral("c"));
    state.addLastSelectedMedia({QByteArray("d")}, QStringLiteral("e"));
    for (const int position : state.lastSelectedColorPositions())
        fuzz::require(position >= 0, "a position in the colour grid is none below zero");
    state.systemCollections();
    state.exportPresets();
    const QString number = QStringLiteral("1");
    state.setSystemCollectionSort(number, 2, true);
    if (state.hasSystemCollection(number))
        (void)state.systemCollection(number);
});

} // namespace
