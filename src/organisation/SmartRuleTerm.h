#pragma once

#include <QDateTime>
#include <QString>
#include <QVariantMap>
#include <optional>
#include <variant>

namespace mosaro::organisation {

/// A text attribute against a text, ignoring case. Matches takes * and ? in the value as wildcards.
struct SmartTextTerm {
    enum class Test { Matches, Contains, BeginsWith, EndsWith, Is };
    QLatin1String attribute;
    Test test;
    QString value;
};

/// A number attribute against a number.
struct SmartNumberTerm {
    enum class Test { Equal, AtLeast, AtMost };
    QLatin1String attribute;
    Test test;
    qint64 value;
};

/// Items with a tag, or those without it.
struct SmartTagTerm {
    bool has;
    QString tagID;
};

/// A date attribute against days of the local calendar.
struct SmartDateTerm {
    enum class Test { Within, Before, After };
    QLatin1String attribute;
    Test test;
    QDateTime start; ///< Start of the first day; for Within and Before.
    QDateTime end;   ///< The last whole second of the last day; for Within and After.
};

/// What one rule asks for, with everything in it read and checked.
using SmartRuleTerm = std::variant<SmartTextTerm, SmartNumberTerm, SmartTagTerm, SmartDateTerm>;

/// Nothing for a rule that lacks something, or whose type or condition is not known: it falls out.
[[nodiscard]] std::optional<SmartRuleTerm> smartRuleTerm(const QVariantMap& rule);

} // namespace mosaro::organisation
