#include "ctl/ColorSelection.h"

#include "base/Text.h"
#include "organisation/ColorGroups.h"
#include "store/ColorList.h"

namespace mosaro::ctl {

base::Result<store::Predicate> withColor(store::ZNDBManager& library, const QString& color)
{
    QVariantList rows;
    for (const store::RowId row : organisation::colorsNamed(library, color)) {
        rows.append(static_cast<qlonglong>(row));
    }
    if (rows.isEmpty()) {
        return base::Failure{base::text("Failure.Ctl.NoColor", color)};
    }
    return store::Predicate::linkedBy(
        store::ColorList::info(), QLatin1String("media"),
        store::Predicate::compare(QLatin1String("colors"), store::Comparison::In, rows));
}

} // namespace mosaro::ctl
