#include "ctl/SmartRulesJson.h"

#include "base/Text.h"
#include "organisation/SmartRules.h"
#include "store/StoreContext.h"
#include "store/Tags.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

namespace mosaro::ctl {

using base::Failure;
using base::Result;
using base::text;
using organisation::SMART_KEY_CONDITION;
using organisation::SMART_KEY_DEFAULT_VALUE;
using organisation::SMART_KEY_OTHER_VALUE;
using organisation::SMART_KEY_RULE_TYPE;
using organisation::SmartRuleFamily;

namespace {

/// As many as the editor has room for.
constexpr qsizetype kMostRules = 15;

std::optional<qint64> wholeNumber(const QJsonValue& value)
{
    const double number = value.toDouble();
    const bool isWhole = value.isDouble() && std::abs(number) <= 0x1p53 && std::floor(number) == number;
    return isWhole ? std::optional(static_cast<qint64>(number)) : std::nullopt;
}

/// A day, or a moment with or without a time zone; nothing when rules cannot name its day.
std::optional<QDateTime> moment(const QJsonValue& value)
{
    const QString iso = value.toString();
    const QDate day = QDate::fromString(iso, Qt::ISODate);
    // At noon, so that it is the same day wherever the library is opened later.
    const QDateTime moment =
        day.isValid() ? QDateTime(day, QTime(12, 0)) : QDateTime::fromString(iso, Qt::ISODate);
    const QDate local = moment.toLocalTime().date();
    const bool isStorable = moment.isValid() && local >= organisation::firstSmartRuleDay() &&
                            local <= organisation::lastSmartRuleDay();
    return isStorable ? std::optional(moment) : std::nullopt;
}

QString datesInWords()
{
    return text("Failure.Ctl.Rule.Date", organisation::firstSmartRuleDay().toString(Qt::ISODate),
                organisation::lastSmartRuleDay().toString(Qt::ISODate));
}

/// One rule. The family says what its values are; for a type that contributes nothing they stay as they are.
class RuleReader {
public:
    RuleReader(QJsonObject object, int number) : m_object(std::move(object)), m_number(number) {}

    Result<QVariantMap> read()
    {
        const auto type = wholeNumber(m_object.value(SMART_KEY_RULE_TYPE));
        if (!type) {
            return fault(text("Failure.Ctl.Rule.Type", SMART_KEY_RULE_TYPE));
        }
        const auto* kind = organisation::smartRuleKind(*type);
        m_family = kind ? kind->family : SmartRuleFamily::None;
        QVariantMap record{{SMART_KEY_RULE_TYPE, *type}};
        for (auto member = m_object.constBegin(); member != m_object.constEnd(); ++member) {
            const QVariant value = valueOf(member.key(), member.value());
            if (!value.isValid()) {
                return fault(m_fault);
            }
            record.insert(member.key(), value);
        }
        return record;
    }

private:
    [[nodiscard]] Failure fault(const QString& reason) const
    {
        return {text("Failure.Ctl.Rule", QString::number(m_number), reason)};
    }

    QVariant valueOf(const QString& key, const QJsonValue& value)
    {
        if (key == SMART_KEY_DEFAULT_VALUE) {
            return mainValue(value);
        }
        if (key == SMART_KEY_OTHER_VALUE && m_family == SmartRuleFamily::Date) {
            return date(value);
        }
        if (key == SMART_KEY_RULE_TYPE || key == SMART_KEY_CONDITION || key == SMART_KEY_OTHER_VALUE) {
            m_fault = text("Failure.Ctl.Rule.Number", key);
            const auto number = wholeNumber(value);
            return number ? QVariant(*number) : QVariant();
        }
        m_fault = text("Failure.Ctl.Rule.Key", key);
        return {};
    }

    QVariant mainValue(const QJsonValue& value)
    {
        const bool isNumberText =
            m_family == SmartRuleFamily::FileSize || m_family == SmartRuleFamily::Number;
        switch (m_family) {
        case SmartRuleFamily::Date:
            return date(value);
        case SmartRuleFamily::Rating:
            m_fault = text("Failure.Ctl.Rule.Number", SMART_KEY_DEFAULT_VALUE);
            return value.isDouble() ? QVariant(value.toDouble()) : QVariant();
        case SmartRuleFamily::Label:
        case SmartRuleFamily::Boolean:
            m_fault = text("Failure.Ctl.Rule.Number", SMART_KEY_DEFAULT_VALUE);
            return value.isBool() ? QVariant(qint64(value.toBool())) : numberOf(value);
        default:
            m_fault = text("Failure.Ctl.Rule.Text", SMART_KEY_DEFAULT_VALUE);
            if (isNumberText && wholeNumber(value)) {
                return QString::number(*wholeNumber(value));
            }
            return value.isString() ? QVariant(value.toString()) : QVariant();
        }
    }

    static QVariant numberOf(const QJsonValue& value)
    {
        const auto number = wholeNumber(value);
        return number ? QVariant(*number) : QVariant();
    }

    QVariant date(const QJsonValue& value)
    {
        m_fault = datesInWords();
        const auto given = moment(value);
        return given ? QVariant(*given) : QVariant();
    }

    QJsonObject m_object;
    int m_number;
    SmartRuleFamily m_family = SmartRuleFamily::None;
    QString m_fault;
};

QString valueInWords(SmartRuleFamily family)
{
    switch (family) {
    case SmartRuleFamily::FileType: {
        QStringList keys;
        for (const QVariant& type : organisation::availableMediaInSmartCollection()) {
            keys.append(u'"' + type.toMap().value(organisation::IMAGE_EXTENSION).toString() + u'"');
        }
        return keys.join(QStringLiteral(" "));
    }
    case SmartRuleFamily::FileSize:
        return text("Hint.Ctl.Rules.Size", SMART_KEY_OTHER_VALUE);
    case SmartRuleFamily::Number:
        return text("Hint.Ctl.Rules.Number");
    case SmartRuleFamily::Rating:
        return text("Hint.Ctl.Rules.Rating");
    case SmartRuleFamily::Label:
        return text("Hint.Ctl.Rules.Label");
    case SmartRuleFamily::Boolean:
        return text("Hint.Ctl.Rules.Boolean");
    case SmartRuleFamily::Tag:
        return text("Hint.Ctl.Rules.Tag");
    case SmartRuleFamily::Date:
        return text("Hint.Ctl.Rules.Date", SMART_KEY_OTHER_VALUE);
    default:
        return text("Hint.Ctl.Rules.Text");
    }
}

} // namespace

Result<QVariantList> smartRulesFromJson(const QString& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError) {
        return Failure{text("Failure.Ctl.Rules.Json", error.errorString(), QString::number(error.offset))};
    }
    const QJsonArray array = document.array();
    if (array.isEmpty() || array.size() > kMostRules) {
        return Failure{text("Failure.Ctl.Rules.Count", QString::number(kMostRules))};
    }
    QVariantList rules;
    for (const auto& element : array) {
        const auto rule = RuleReader(element.toObject(), int(rules.size()) + 1).read();
        if (!rule) {
            return rule.failure();
        }
        rules.append(rule.value());
    }
    return rules;
}

Result<void> resolveTags(store::StoreContext& context, QVariantList& rules)
{
    using store::Comparison;
    using store::Predicate;
    for (QVariant& rule : rules) {
        QVariantMap record = rule.toMap();
        const auto* kind = organisation::smartRuleKind(record.value(SMART_KEY_RULE_TYPE).toLongLong());
        if (!kind || kind->family != SmartRuleFamily::Tag || !record.contains(SMART_KEY_DEFAULT_VALUE)) {
            continue;
        }
        const QString named = record.value(SMART_KEY_DEFAULT_VALUE).toString();
        const auto tag = context.first<store::Tags>(
            Predicate::anyOf({Predicate::compare(QLatin1String("title"), Comparison::Equal, named),
                              Predicate::compare(QLatin1String("tagID"), Comparison::Equal, named)}));
        if (!tag) {
            return Failure{text("Failure.Ctl.NoTag", named)};
        }
        record.insert(SMART_KEY_DEFAULT_VALUE, tag->tagID());
        rule = record;
    }
    return {};
}

QString smartRulesHelp()
{
    QString help =
        text("Hint.Ctl.Rules.Form", SMART_KEY_RULE_TYPE, SMART_KEY_CONDITION, SMART_KEY_DEFAULT_VALUE,
             QString::number(kMostRules)) +
        QStringLiteral("\n\n") +
        QStringLiteral("  [{\"%1\": 0, \"%2\": 1, \"%3\": \"logo\"},\n"
                       "   {\"%1\": 6, \"%2\": 3, \"%3\": \"2024-01-01\", \"%4\": \"2024-12-31\"}]\n\n")
            .arg(SMART_KEY_RULE_TYPE, SMART_KEY_CONDITION, SMART_KEY_DEFAULT_VALUE, SMART_KEY_OTHER_VALUE);
    for (const auto& kind : organisation::smartRuleKinds()) {
        QStringList conditions;
        for (const auto& condition : organisation::smartRuleConditions(kind.family)) {
            conditions.append(QString::number(condition.number) + u' ' + text(condition.titleKey));
        }
        help += QStringLiteral("  %1 %2: %3\n")
                    .arg(kind.type, 2)
                    .arg(text(kind.titleKey), valueInWords(kind.family));
        if (!conditions.isEmpty()) {
            help += QStringLiteral("     ") + conditions.join(QStringLiteral(", ")) + u'\n';
        }
    }
    return help + u'\n' + text("Hint.Ctl.Rules.Inclusive") + u'\n';
}

} // namespace mosaro::ctl
