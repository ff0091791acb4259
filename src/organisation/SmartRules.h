#pragma once

#include <QDate>
#include <QLatin1String>
#include <QVariantList>
#include <QVariantMap>
#include <span>

namespace mosaro::organisation {

// A rule record: a map under these keys, as Collections::filters keeps them.
inline constexpr QLatin1String SMART_KEY_RULE_TYPE{"SMART_KEY_RULE_TYPE"};
inline constexpr QLatin1String SMART_KEY_CONDITION{"SMART_KEY_CONDITION"};
inline constexpr QLatin1String SMART_KEY_DEFAULT_VALUE{"SMART_KEY_DEFAULT_VALUE"};
/// Size unit, or the end of a range of dates.
inline constexpr QLatin1String SMART_KEY_OTHER_VALUE{"SMART_KEY_OTHER_VALUE"};

// What the editor of a smart collection gives back.
inline constexpr QLatin1String SMART_COLLECTION_TITLE{"SMART_COLLECTION_TITLE"};
/// 0 for any rule, 1 for all.
inline constexpr QLatin1String SMART_COLLECTION_MATCH_CONDITION{"SMART_COLLECTION_MATCH_CONDITION"};
inline constexpr QLatin1String SMART_COLLECTION_RULES{"SMART_COLLECTION_RULES"};

// Entries of smartRuleKeys().
inline constexpr QLatin1String SMART_RULE_TITLE{"SMART_RULE_TITLE"};
inline constexpr QLatin1String SMART_RULE_TYPE{"SMART_RULE_TYPE"};

// Entries of availableMediaInSmartCollection().
inline constexpr QLatin1String IMAGE_TITLE{"IMAGE_TITLE"};
inline constexpr QLatin1String IMAGE_EXTENSION{"IMAGE_EXTENSION"};

/// What rules of a type have in common: their values, their conditions, how they are put as a query. Color
/// has a row in the editor and nothing else.
enum class SmartRuleFamily {
    None,
    String,
    FileType,
    FileSize,
    Number,
    Rating,
    Label,
    Boolean,
    Tag,
    Date,
    Color
};

/// A type that rules can be of: number, what it looks at, and its name's message key.
struct SmartRuleKind {
    int type;
    SmartRuleFamily family;
    QLatin1String attribute; ///< Of Media; empty for tags.
    const char* titleKey;
};

/// One entry of a menu of conditions. The numbers are stored.
struct SmartRuleCondition {
    int number;
    const char* titleKey;
};

/// One entry of the menu of size units.
struct SmartRuleUnit {
    qint64 bytes;
    QLatin1String title;
};

/// The types that a rule can be given, in the order of the menu.
[[nodiscard]] std::span<const SmartRuleKind> smartRuleKinds();
/// Null for every type outside the menu: a rule of such a type contributes nothing.
[[nodiscard]] const SmartRuleKind* smartRuleKind(qint64 type);
/// The family of the value view that a row of the editor shows: reserved types have one, too.
[[nodiscard]] SmartRuleFamily smartRuleRowFamily(qint64 type);
/// The conditions of a family in the order of its menu; none where there is no choice.
[[nodiscard]] std::span<const SmartRuleCondition> smartRuleConditions(SmartRuleFamily family);
[[nodiscard]] std::span<const SmartRuleUnit> smartRuleUnits();

/// The menu of types, as records of SMART_RULE_TITLE and SMART_RULE_TYPE.
[[nodiscard]] QVariantList smartRuleKeys();
/// The file types that a rule can ask for, as records of IMAGE_TITLE and IMAGE_EXTENSION.
[[nodiscard]] QVariantList availableMediaInSmartCollection();
/// Title, match condition and rules are there, and at least one rule.
[[nodiscard]] bool isValidSmartCollection(const QVariantMap& result);

/// The days that a stored rule can name.
[[nodiscard]] QDate firstSmartRuleDay();
[[nodiscard]] QDate lastSmartRuleDay();

} // namespace mosaro::organisation
