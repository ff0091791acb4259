#include "store/TextFunctions.h"

#include "base/FinderStyleCompare.h"

#include <SQLiteCpp/Exception.h>
#include <algorithm>
#include <sqlite3.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace mosaro::store {

namespace {

icu::UnicodeString normalized(const icu::Normalizer2* form, const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result = form->normalize(text, status);
    return U_SUCCESS(status) ? result : text;
}

const icu::Normalizer2* composed()
{
    UErrorCode status = U_ZERO_ERROR;
    return icu::Normalizer2::getNFCInstance(status);
}

const icu::Normalizer2* decomposed()
{
    UErrorCode status = U_ZERO_ERROR;
    return icu::Normalizer2::getNFDInstance(status);
}

icu::UnicodeString withoutMarks(const icu::UnicodeString& text)
{
    icu::UnicodeString result;
    for (int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
        const UChar32 character = text.char32At(at);
        if (u_charType(character) != U_NON_SPACING_MARK)
            result.append(character);
    }
    return result;
}

std::string foldedByIcu(std::string_view bytes, Fold fold)
{
    auto text =
        icu::UnicodeString::fromUTF8(icu::StringPiece(bytes.data(), static_cast<int32_t>(bytes.size())));
    if (fold == Fold::CaseAndDiacritics)
        text = withoutMarks(normalized(decomposed(), text));
    text.foldCase();
    // Composed again, so that a syllable is not found as the beginning of another.
    text = normalized(composed(), text);
    std::string result;
    text.toUTF8String(result);
    return result;
}

bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

void lowerAscii(std::string_view bytes, std::string& result)
{
    result.resize(bytes.size());
    std::transform(bytes.begin(), bytes.end(), result.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
    });
}

/// A view of the folded text: of `bytes` where nothing is to be done, else of `buffer`.
std::string_view folded(std::string_view bytes, Fold fold, std::string& buffer)
{
    if (fold == Fold::None)
        return bytes;
    if (isAscii(bytes))
        lowerAscii(bytes, buffer);
    else
        buffer = foldedByIcu(bytes, fold);
    return buffer;
}

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

template <Test test>
void testFunction(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) {
        sqlite3_result_int(context, 0);
        return;
    }
    static std::string buffer; // Queries run on the main thread; kept for its capacity.
    const auto fold = static_cast<Fold>(sqlite3_value_int(arguments[2]));
    sqlite3_result_int(context,
                       test(folded(textOf(arguments[0]), fold, buffer), textOf(arguments[1])) ? 1 : 0);
}

void foldFunction(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    const std::string text =
        foldedText(textOf(arguments[0]), static_cast<Fold>(sqlite3_value_int(arguments[1])));
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

std::string foldedText(std::string_view text, Fold fold)
{
    std::string buffer;
    return std::string(folded(text, fold, buffer));
}

void registerTextFunctions(SQLite::Database& database)
{
    sqlite3* handle = database.getHandle();
    registerFunction(handle, "mosaro_fold", 2, foldFunction);
    registerFunction(handle, "mosaro_contains", 3, testFunction<contains>);
    registerFunction(handle, "mosaro_begins", 3, testFunction<begins>);
    registerFunction(handle, "mosaro_ends", 3, testFunction<ends>);
    const int result =
        sqlite3_create_collation_v2(handle, "FINDER", SQLITE_UTF8, nullptr, finderCollation, nullptr);
    if (result != SQLITE_OK)
        throw SQLite::Exception(handle, result);
}

} // namespace mosaro::store
