#include "organisation/SmartRuleQuery.h"

#include "organisation/SmartRuleText.h"
#include "store/MediaTagList.h"

#include <QSet>

namespace mosaro::organisation {

using store::Comparison;
using store::Predicate;

namespace {

// By the numbers of the tests.
constexpr Comparison kTextComparisons[] = {Comparison::Like, Comparison::Contains, Comparison::BeginsWith,
                                           Comparison::EndsWith, Comparison::Equal};
constexpr Comparison kNumberComparisons[] = {Comparison::Equal, Comparison::GreaterOrEqual,
                                             Comparison::LessOrEqual};

struct Compiler {
    Predicate operator()(const SmartTextTerm& term) const
    {
        const bool isPattern = term.test == SmartTextTerm::Test::Matches;
        return Predicate::compare(term.attribute, kTextComparisons[size_t(term.test)],
                                  isPattern ? u'*' + term.value + u'*' : term.value, store::Fold::Case);
    }

    Predicate operator()(const SmartNumberTerm& term) const
    {
        const auto test =
            Predicate::compare(term.attribute, kNumberComparisons[size_t(term.test)], term.value);
        if (!fulfils(0, term)) {
            return test;
        }
        return Predicate::anyOf({test, Predicate::compare(term.attribute, Comparison::Equal, QVariant())});
    }

    Predicate operator()(const SmartTagTerm& term) const
    {
        const auto tagged =
            Predicate::linkedBy(store::MediaTagList::info(), QLatin1String("media"),
                                Predicate::compare(QLatin1String("tagID"), Comparison::Equal, term.tagID));
        return term.has ? tagged : Predicate::notOf(tagged);
    }

    Predicate operator()(const SmartDateTerm& term) const
    {
        switch (term.test) {
        case SmartDateTerm::Test::Before:
            return Predicate::compare(term.attribute, Comparison::Less, term.start);
        case SmartDateTerm::Test::After:
            return Predicate::compare(term.attribute, Comparison::Greater, term.end);
        case SmartDateTerm::Test::Within:
            break;
        }
        return Predicate::allOf({Predicate::compare(term.attribute, Comparison::GreaterOrEqual, term.start),
                                 Predicate::compare(term.attribute, Comparison::LessOrEqual, term.end)});
    }

private:
    static bool fulfils(qint64 value, const SmartNumberTerm& term)
    {
        return value == term.value || (term.test == SmartNumberTerm::Test::AtLeast && value > term.value) ||
               (term.test == SmartNumberTerm::Test::AtMost && value < term.value);
    }
};

} // namespace

std::optional<Predicate> smartQuery(const QVariantList& rules, bool withCondition)
{
    QSet<QString> known;
    std::vector<Predicate> parts;
    for (const QVariant& rule : rules) {
        const auto term = smartRuleTerm(rule.toMap());
        if (!term) {
            continue;
        }
        const QString text = smartRuleText(*term);
        if (!known.contains(text)) {
            known.insert(text);
            parts.push_back(std::visit(Compiler(), *term));
        }
    }
    if (parts.empty()) {
        return std::nullopt;
    }
    // A rule's own AND binds tighter than the OR between rules, so that each is a part by itself either way.
    return withCondition ? Predicate::allOf(std::move(parts)) : Predicate::anyOf(std::move(parts));
}

std::optional<Predicate> smartQueryOf(const store::Collections& collection)
{
    return smartQuery(collection.filters(), collection.filterCondition());
}

} // namespace mosaro::organisation
