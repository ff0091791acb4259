// From a smart collection, kind or search to its items, in generated libraries of 1,000 to
// 100,000 items (1,000,000 with MOSARO_BENCH_MILLION set).
#include "bench/BenchLibrary.h"
#include "organisation/SmartRuleQuery.h"
#include "organisation/SmartRules.h"
#include "store/Media.h"
#include "store/MediaSet.h"
#include "store/Tags.h"

#include <benchmark/benchmark.h>

namespace {

using namespace mosaro;
using store::Comparison;
using store::Predicate;
using store::StoreContext;

QVariantMap rule(int type, int condition, const QVariant& value, const QVariant& other = {})
{
    return {{organisation::SMART_KEY_RULE_TYPE, type},
            {organisation::SMART_KEY_CONDITION, condition},
            {organisation::SMART_KEY_DEFAULT_VALUE, value},
            {organisation::SMART_KEY_OTHER_VALUE, other}};
}

QVariant day(int year, int month, int day)
{
    return QDate(year, month, day).startOfDay();
}

template <class T>
QString anyKey(StoreContext& context, QString (T::*key)() const)
{
    const auto records = context.fetch<T>({Predicate::all(), {}, 7});
    return records && !records.value().empty() ? (records.value().back().get()->*key)() : QString();
}

template <class... Rules>
Predicate allOf(const Rules&... rules)
{
    return *organisation::smartQuery({rules...}, true);
}

Predicate search(QLatin1String attribute, const QString& keyword)
{
    return Predicate::compare(attribute, Comparison::Contains, keyword, store::Fold::CaseAndDiacritics);
}

struct Selection {
    const char* name;
    Predicate (*predicate)(StoreContext& context);
};

const Selection kSelections[] = {
    {"title matches", [](StoreContext&) { return allOf(rule(0, 0, QStringLiteral("d?rk*v1"))); }},
    {"title contains", [](StoreContext&) { return allOf(rule(0, 1, QStringLiteral("Übersicht"))); }},
    {"title is", [](StoreContext&) { return allOf(rule(0, 4, QStringLiteral("img_0042"))); }},
    {"address contains", [](StoreContext&) { return allOf(rule(7, 1, QStringLiteral("example"))); }},
    {"profile begins", [](StoreContext&) { return allOf(rule(13, 2, QStringLiteral("srgb"))); }},
    {"file type", [](StoreContext&) { return allOf(rule(2, 0, QStringLiteral("png"))); }},
    {"file size", [](StoreContext&) { return allOf(rule(3, 1, QStringLiteral("5"), 1'000'000)); }},
    {"width", [](StoreContext&) { return allOf(rule(8, 0, QStringLiteral("1920"))); }},
    {"resolution", [](StoreContext&) { return allOf(rule(10, 1, QStringLiteral("72"))); }},
    {"rating", [](StoreContext&) { return allOf(rule(21, 1, 4.0)); }},
    {"label", [](StoreContext&) { return allOf(rule(16, 0, 3)); }},
    {"alpha", [](StoreContext&) { return allOf(rule(18, 0, 1)); }},
    {"tag rule",
     [](StoreContext& context) { return allOf(rule(20, 1, anyKey(context, &store::Tags::tagID))); }},
    {"not the tag",
     [](StoreContext& context) { return allOf(rule(20, 0, anyKey(context, &store::Tags::tagID))); }},
    {"created in a year",
     [](StoreContext&) { return allOf(rule(4, 3, day(2022, 1, 1), day(2022, 12, 31))); }},
    {"imported in three years, rated",
     [](StoreContext&) { return allOf(rule(6, 3, day(2021, 1, 1), day(2023, 12, 31)), rule(21, 1, 3.0)); }},
    {"imported on a day", [](StoreContext&) { return allOf(rule(6, 0, day(2023, 5, 5))); }},
    {"three rules",
     [](StoreContext&) {
         return allOf(rule(0, 1, QStringLiteral("café")), rule(21, 1, 3.0),
                      rule(4, 3, day(2021, 1, 1), day(2023, 12, 31)));
     }},
    {"any of three rules",
     [](StoreContext& context) {
         return *organisation::smartQuery({rule(0, 1, QStringLiteral("café")),
                                           rule(20, 1, anyKey(context, &store::Tags::tagID)),
                                           rule(4, 0, day(2022, 2, 2))},
                                          false);
     }},
    {"kind",
     [](StoreContext&) { return Predicate::compare(QLatin1String("mediaKind"), Comparison::Equal, 12); }},
    {"search titles",
     [](StoreContext&) { return search(QLatin1String("mediaTitle"), QStringLiteral("Cafe")); }},
    {"search notes",
     [](StoreContext&) { return search(QLatin1String("mediaNotes"), QStringLiteral("ubersicht")); }},
    {"search addresses",
     [](StoreContext&) { return search(QLatin1String("mediaWeburl"), QStringLiteral("example")); }},
};

/// An open library of as many items as the benchmark's first argument says.
class OpenLibrary {
public:
    explicit OpenLibrary(benchmark::State& state)
    {
        if (!m_library.open(bench::generatedLibrary(int(state.range(0)))))
            state.SkipWithError("the library does not open");
    }
    [[nodiscard]] StoreContext* context() { return m_library.manager().context(); }

private:
    bench::BenchLibrary m_library;
};

void select(benchmark::State& state, const Selection& selection)
{
    OpenLibrary library(state);
    if (!library.context())
        return;
    const Predicate predicate = selection.predicate(*library.context());
    std::size_t found = 0;
    for (auto _ : state)
        found = store::mediaSet(*library.context(), {predicate}).ids.size();
    state.counters["found"] = double(found);
}

/// What the list of a search shows: the newest first.
void searchNewestFirst(benchmark::State& state)
{
    OpenLibrary library(state);
    if (!library.context())
        return;
    const store::Query query{search(QLatin1String("mediaTitle"), QStringLiteral("cafe")),
                             {{QLatin1String("mediaDateImported"), false}},
                             -1};
    for (auto _ : state) {
        auto ids = library.context()->fetchIds(store::Media::info(), query);
        benchmark::DoNotOptimize(ids);
    }
}

/// The numbers beside all collections, one query for each.
void countCollections(benchmark::State& state)
{
    OpenLibrary library(state);
    if (!library.context())
        return;
    const auto collections = library.context()->fetch<store::Collections>({});
    qint64 items = 0;
    for (auto _ : state) {
        items = 0;
        for (const auto& collection : collections.value())
            items += collection->mediaCount();
    }
    state.counters["collections"] = double(collections.value().size());
}

const bool kRegistered = [] {
    for (const Selection& selection : kSelections) {
        bench::librarySizes(benchmark::RegisterBenchmark(("select/" + std::string(selection.name)).c_str(),
                                                         select, selection));
    }
    return true;
}();

BENCHMARK(searchNewestFirst)->Apply(bench::librarySizes);
BENCHMARK(countCollections)->Apply(bench::librarySizes);

} // namespace
