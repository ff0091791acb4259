#include "store/TextFunctions.h"

#include "base/FinderStyleCompare.h"
#include "store/TextFolding.h"

#include <SQLiteCpp/Exception.h>
#include <algorithm>
#include <sqlite3.h>
#include <string_view>

namespace mosaro::store {

namespace {

std::string_view textOf(sqlite3_value* value)
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return bytes == nullptr ? std::string_view()
                            : std::string_view(bytes, static_cast<size_t>(sqlite3_value_bytes(value)));
}

using Test = bool (*)(std::string_view text, std::string_view part);

bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}
bool begins(std::string_view text, std::string_view part)
{
    return text.starts_with(part);
}
bool ends(std::string_view text, std::string_view part)
{
    return text.ends_with(part);
}

bool isContinued(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

ptrdiff_t characters(std::string_view text)
{
    return std::count_if(text.begin(), text.end(), [](char byte) { return !isContinued(byte); });
}

/// Past the UTF-8 character that begins at `at`.
size_t nextCharacter(std::string_view text, size_t at)
{
    do
        ++at;
    while (at < text.size() && isContinued(text[at]));
    return at;
}

/// Whether the whole text is of the pattern. What a star takes grows by a character at each mismatch after
/// it; earlier stars need not be tried again.
bool isLike(std::string_view text, std::string_view pattern)
{
    constexpr size_t kNone = std::string_view::npos;
    size_t at = 0;
    size_t next = 0;
    size_t afterStar = kNone;
    size_t retry = 0;
    while (at < text.size()) {
        if (next < pattern.size() && pattern[next] == '*') {
            afterStar = ++next;
            retry = at;
        } else if (next < pattern.size() && pattern[next] == '?') {
            at = nextCharacter(text, at);
            ++next;
        } else if (next < pattern.size() && pattern[next] == text[at]) {
            ++at;
            ++next;
        } else if (afterStar != kNone) {
            retry = nextCharacter(text, retry);
            at = retry;
            next = afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', next) == kNone;
}

template <Test test>
void testFunction(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) {
        sqlite3_result_int(context, 0);
        return;
    }
    const auto fold = static_cast<Fold>(sqlite3_value_int(arguments[2]));
    const std::string_view text = textOf(arguments[0]);
    const std::string_view part = textOf(arguments[1]);
    bool found = test(foldedView(text, fold), part);
    const bool isOfCharacters = test == isLike && fold == Fold::Case && part.find('?') != part.npos;
    if (isOfCharacters && !found && characters(text) != characters(foldedView(text, fold)))
        found = test(foldedByCharacter(text), part);
    sqlite3_result_int(context, found ? 1 : 0);
}

void foldFunction(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    const std::string_view text =
        foldedView(textOf(arguments[0]), static_cast<Fold>(sqlite3_value_int(arguments[1])));
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

int finderCollation(void*, int leftSize, const void* left, int rightSize, const void* right)
{
    return base::finderStyleCompareUtf8(static_cast<const char*>(left), leftSize,
                                        static_cast<const char*>(right), rightSize);
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void registerFunction(sqlite3* handle, const char* name, int arguments, Function function)
{
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const int result = sqlite3_create_function_v2(handle, name, arguments, flags, nullptr, function, nullptr,
                                                  nullptr, nullptr);
    if (result != SQLITE_OK)
        throw SQLite::Exception(handle, result);
}

} // namespace

void registerTextFunctions(SQLite::Database& database)
{
    sqlite3* handle = database.getHandle();
    registerFunction(handle, "mosaro_fold", 2, foldFunction);
    registerFunction(handle, "mosaro_contains", 3, testFunction<contains>);
    registerFunction(handle, "mosaro_begins", 3, testFunction<begins>);
    registerFunction(handle, "mosaro_ends", 3, testFunction<ends>);
    registerFunction(handle, "mosaro_like", 3, testFunction<isLike>);
    const int result =
        sqlite3_create_collation_v2(handle, "FINDER", SQLITE_UTF8, nullptr, finderCollation, nullptr);
    if (result != SQLITE_OK)
        throw SQLite::Exception(handle, result);
}

} // namespace mosaro::store
