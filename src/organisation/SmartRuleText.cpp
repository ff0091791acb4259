#include "organisation/SmartRuleText.h"

namespace mosaro::organisation {

namespace {

/// The reference date of the predicate language, 2001-01-01 in UTC, as seconds since 1970.
constexpr qint64 kReferenceDate = 978'307'200;

QString castDate(const QDateTime& moment)
{
    const double seconds = double(moment.toMSecsSinceEpoch()) / 1000.0 - double(kReferenceDate);
    return QStringLiteral("CAST(%1, \"NSDate\")").arg(seconds, 0, 'f', 6);
}

struct Writer {
    QString operator()(const SmartTextTerm& term) const
    {
        switch (term.test) {
        case SmartTextTerm::Test::Matches:
            return term.attribute + QLatin1String(" like[c] '*") + term.value + QLatin1String("*'");
        case SmartTextTerm::Test::Contains:
            return quoted(term, " contains[c] \"");
        case SmartTextTerm::Test::BeginsWith:
            return quoted(term, " beginswith[c] \"");
        case SmartTextTerm::Test::EndsWith:
            return quoted(term, " endswith[c] \"");
        case SmartTextTerm::Test::Is:
            break;
        }
        return quoted(term, " ==[c] \"");
    }

    QString operator()(const SmartNumberTerm& term) const
    {
        const char* const word = term.test == SmartNumberTerm::Test::Equal     ? " == "
                                 : term.test == SmartNumberTerm::Test::AtLeast ? " >= "
                                                                               : " <= ";
        return term.attribute + QLatin1String(word) + QString::number(term.value);
    }

    QString operator()(const SmartTagTerm& term) const
    {
        return QLatin1String("SUBQUERY(mediaTagList, $mediaTagList, $mediaTagList.tagID == \"") + term.tagID +
               QLatin1String(term.has ? "\").@count > 0" : "\").@count == 0");
    }

    QString operator()(const SmartDateTerm& term) const
    {
        const QString name = term.attribute;
        switch (term.test) {
        case SmartDateTerm::Test::Before:
            return name + QLatin1String(" < ") + castDate(term.start);
        case SmartDateTerm::Test::After:
            return name + QLatin1String(" > ") + castDate(term.end);
        case SmartDateTerm::Test::Within:
            break;
        }
        return name + QLatin1String(" >= ") + castDate(term.start) + QLatin1String(" AND ") + name +
               QLatin1String(" <= ") + castDate(term.end);
    }

private:
    static QString quoted(const SmartTextTerm& term, const char* word)
    {
        return term.attribute + QLatin1String(word) + term.value + u'"';
    }
};

} // namespace

QString smartRuleText(const SmartRuleTerm& term)
{
    return std::visit(Writer(), term);
}

QString smartQueryText(const QVariantList& rules, bool withCondition)
{
    QStringList texts;
    for (const QVariant& rule : rules) {
        if (const auto term = smartRuleTerm(rule.toMap())) {
            texts.append(smartRuleText(*term));
        }
    }
    texts.removeDuplicates();
    return texts.join(QLatin1String(withCondition ? " AND " : " OR "));
}

} // namespace mosaro::organisation
