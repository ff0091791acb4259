#include "organisation/SmartRuleTerm.h"

#include "import/MediaClassification.h"
#include "organisation/SmartRules.h"

#include <cmath>
#include <limits>

namespace mosaro::organisation {

namespace {

using Limits = std::numeric_limits<qint64>;
using NumberTest = SmartNumberTerm::Test;

/// The whole number at the beginning of a text, 0 for none; what is out of range is the nearest in it.
qint64 leadingInteger(const QString& text)
{
    const QString trimmed = text.trimmed();
    const bool isNegative = trimmed.startsWith(u'-');
    qint64 value = 0;
    for (qsizetype i = isNegative || trimmed.startsWith(u'+') ? 1 : 0; i < trimmed.size(); ++i) {
        const int digit = trimmed[i].digitValue();
        if (digit < 0) {
            break;
        }
        if (__builtin_mul_overflow(value, qint64(10), &value) ||
            __builtin_add_overflow(value, isNegative ? -digit : digit, &value)) {
            return isNegative ? Limits::min() : Limits::max();
        }
    }
    return value;
}

qint64 truncated(double value)
{
    // The greatest qint64 is no double; its neighbour is.
    if (value >= 0x1p63) {
        return Limits::max();
    }
    return std::isnan(value) ? 0 : static_cast<qint64>(std::max(value, -0x1p63));
}

qint64 product(qint64 left, qint64 right)
{
    qint64 value = 0;
    if (__builtin_mul_overflow(left, right, &value)) {
        return (left < 0) == (right < 0) ? Limits::max() : Limits::min();
    }
    return value;
}

std::optional<qint64> number(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return truncated(value.toDouble());
    default:
        return std::nullopt;
    }
}

/// The same, where the value is the text of a field for numbers.
std::optional<qint64> fieldNumber(const QVariant& value)
{
    return value.typeId() == QMetaType::QString ? leadingInteger(value.toString()) : number(value);
}

std::optional<QString> string(const QVariant& value)
{
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QDate> day(const QVariant& value)
{
    const QDateTime moment = value.typeId() == QMetaType::QDateTime ? value.toDateTime() : QDateTime();
    return moment.isValid() ? std::optional(moment.toLocalTime().date()) : std::nullopt;
}

QDateTime lastSecond(QDate date)
{
    return date.endOfDay().addMSecs(-999);
}

/// A rule of a known kind, by its keys.
class Reader {
public:
    Reader(const SmartRuleKind& kind, const QVariantMap& rule) : m_kind(kind), m_rule(rule) {}

    std::optional<SmartRuleTerm> term() const
    {
        switch (m_kind.family) {
        case SmartRuleFamily::String:
            return textTerm();
        case SmartRuleFamily::FileType:
            return numberTerm(0, fileType());
        case SmartRuleFamily::FileSize:
            return numberTerm(has(SMART_KEY_CONDITION) ? condition() : 0, fileSize());
        case SmartRuleFamily::Number:
        case SmartRuleFamily::Rating:
            return numberTerm(condition(), fieldNumber(value()));
        case SmartRuleFamily::Label:
            return numberTerm(0, number(value()));
        case SmartRuleFamily::Boolean:
            return numberTerm(0, truth());
        case SmartRuleFamily::Tag:
            return tagTerm();
        case SmartRuleFamily::Date:
            return dateTerm();
        case SmartRuleFamily::None:
        case SmartRuleFamily::Color:
            break;
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] bool has(QLatin1String key) const { return m_rule.value(key).isValid(); }
    [[nodiscard]] QVariant value() const { return m_rule.value(SMART_KEY_DEFAULT_VALUE); }
    [[nodiscard]] QVariant other() const { return m_rule.value(SMART_KEY_OTHER_VALUE); }

    /// A condition of the family's table.
    [[nodiscard]] std::optional<qint64> condition() const
    {
        const auto chosen = number(m_rule.value(SMART_KEY_CONDITION));
        for (const SmartRuleCondition& condition : smartRuleConditions(m_kind.family)) {
            if (chosen == condition.number) {
                return chosen;
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<qint64> fileType() const
    {
        const auto key = string(value());
        return key ? std::optional<qint64>(importing::MediaClassification::documentType(*key)) : std::nullopt;
    }

    [[nodiscard]] std::optional<qint64> fileSize() const
    {
        const auto count = fieldNumber(value());
        const auto unit = number(other());
        return count && unit ? std::optional(product(*count, *unit)) : std::nullopt;
    }

    [[nodiscard]] std::optional<qint64> truth() const
    {
        const auto flag = number(value());
        return flag ? std::optional<qint64>(*flag != 0 ? 1 : 0) : std::nullopt;
    }

    [[nodiscard]] std::optional<SmartRuleTerm> numberTerm(std::optional<qint64> condition,
                                                          std::optional<qint64> value) const
    {
        if (!condition || !value) {
            return std::nullopt;
        }
        return SmartNumberTerm{m_kind.attribute, NumberTest(*condition), *value};
    }

    [[nodiscard]] std::optional<SmartRuleTerm> textTerm() const
    {
        const auto chosen = condition();
        const auto text = string(value());
        if (!chosen || !text) {
            return std::nullopt;
        }
        return SmartTextTerm{m_kind.attribute, SmartTextTerm::Test(*chosen), *text};
    }

    [[nodiscard]] std::optional<SmartRuleTerm> tagTerm() const
    {
        const auto chosen = condition();
        const auto tagID = string(value());
        if (!chosen || !tagID) {
            return std::nullopt;
        }
        return SmartTagTerm{*chosen == 1, *tagID};
    }

    [[nodiscard]] std::optional<SmartRuleTerm> dateTerm() const
    {
        constexpr qint64 kBefore = 1;
        constexpr qint64 kAfter = 2;
        constexpr qint64 kRange = 3;
        const auto chosen = condition();
        const auto first = day(value());
        const auto last = chosen == kRange ? day(other()) : first;
        if (!chosen || !first || !last) {
            return std::nullopt;
        }
        const auto test = chosen == kBefore  ? SmartDateTerm::Test::Before
                          : chosen == kAfter ? SmartDateTerm::Test::After
                                             : SmartDateTerm::Test::Within;
        return SmartDateTerm{m_kind.attribute, test, first->startOfDay(), lastSecond(*last)};
    }

    const SmartRuleKind& m_kind;
    const QVariantMap& m_rule;
};

} // namespace

std::optional<SmartRuleTerm> smartRuleTerm(const QVariantMap& rule)
{
    const auto type = number(rule.value(SMART_KEY_RULE_TYPE));
    const SmartRuleKind* kind = type ? smartRuleKind(*type) : nullptr;
    return kind ? Reader(*kind, rule).term() : std::nullopt;
}

} // namespace mosaro::organisation
