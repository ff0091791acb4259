#include "organisation/LabelNames.h"

#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"

namespace mosaro::organisation {

QStringList labelNames(const base::ZNUserDefaults& defaults)
{
    struct Name {
        QLatin1String key;
        const char* standard; ///< For a preference that is missing or empty.
    };
    static constexpr Name kNames[] = {{base::PREFS_LABEL_RED_NAME, "Label.Color.Red"},
                                      {base::PREFS_LABEL_ORANGE_NAME, "Label.Color.Orange"},
                                      {base::PREFS_LABEL_YELLOW_NAME, "Label.Color.Yellow"},
                                      {base::PREFS_LABEL_GREEN_NAME, "Label.Color.Green"},
                                      {base::PREFS_LABEL_BLUE_NAME, "Label.Color.Blue"},
                                      {base::PREFS_LABEL_PURPLE_NAME, "Label.Color.Purple"},
                                      {base::PREFS_LABEL_GRAY_NAME, "Label.Color.Gray"}};
    QStringList names(base::text("Basic.None"));
    for (const Name& name : kNames) {
        const QString chosen = defaults.string(name.key);
        names.append(chosen.isEmpty() ? base::text(name.standard) : chosen);
    }
    return names;
}

} // namespace mosaro::organisation
