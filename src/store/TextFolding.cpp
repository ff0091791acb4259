#include "store/TextFolding.h"

#include <algorithm>
#include <array>
#include <memory>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace mosaro::store {

namespace {

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

icu::UnicodeString normalized(const icu::Normalizer2* form, const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result = form->normalize(text, status);
    return U_SUCCESS(status) ? result : text;
}

icu::UnicodeString fromUtf8(std::string_view bytes)
{
    return icu::UnicodeString::fromUTF8(icu::StringPiece(bytes.data(), static_cast<int32_t>(bytes.size())));
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

icu::UnicodeString foldedByIcu(icu::UnicodeString text, Fold fold)
{
    if (fold == Fold::CaseAndDiacritics)
        text = withoutMarks(normalized(decomposed(), text));
    text.foldCase();
    // Composed again, so that a syllable is not found as the beginning of another.
    return normalized(composed(), text);
}

/// The character at `at`, which moves past it; -1 for one beyond the basic plane and for a broken sequence.
UChar32 nextOfBasicPlane(std::string_view text, size_t& at)
{
    const auto follower = [&text, &at]() -> UChar32 {
        const UChar32 byte = at < text.size() ? static_cast<unsigned char>(text[at++]) : 0;
        return (byte & 0xC0) == 0x80 ? byte & 0x3F : -1;
    };
    const UChar32 first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80)
        return first;
    const UChar32 second = follower();
    if (second < 0 || first < 0xC2 || first > 0xEF)
        return -1;
    if (first < 0xE0)
        return (first & 0x1F) << 6 | second;
    const UChar32 third = follower();
    const UChar32 character = (first & 0xF) << 12 | second << 6 | third;
    return third < 0 || character < 0x800 || U_IS_SURROGATE(character) ? -1 : character;
}

/// What characters of the basic plane become each by itself. Those that may join with a neighbour have no
/// entry: a text with one of them is folded as a whole.
class FoldTable {
public:
    explicit FoldTable(Fold fold) : m_fold(fold) {}

    /// False when the text has to be folded as a whole.
    bool fold(std::string_view text, std::string& result)
    {
        if (text.size() > kLongText)
            return false;
        // Entries are copied whole, also where only their first byte counts.
        result.resize(text.size() * kEntrySize);
        char* end = result.data();
        for (size_t at = 0; at < text.size();) {
            const UChar32 character = nextOfBasicPlane(text, at);
            if (character < 0)
                return false;
            const Entry& entry = entryOf(character);
            if (entry.size == kWhole)
                return false;
            end = std::copy_n(entry.bytes.data(), kEntrySize, end) - kEntrySize + entry.size;
        }
        result.resize(static_cast<size_t>(end - result.data()));
        return true;
    }

private:
    static constexpr unsigned char kWhole = 0xFF;
    static constexpr unsigned char kUnknown = 0xFE;
    static constexpr size_t kEntrySize = 7;
    /// From here on the buffer would take more memory than the time is worth.
    static constexpr size_t kLongText = 100'000;
    struct Entry {
        unsigned char size = kUnknown;
        std::array<char, kEntrySize> bytes{};
    };
    using Page = std::array<Entry, 256>;

    Entry& entryOf(UChar32 character)
    {
        auto& page = m_pages[static_cast<size_t>(character) / 256];
        if (!page)
            page = std::make_unique<Page>();
        Entry& entry = (*page)[static_cast<size_t>(character) % 256];
        if (entry.size == kUnknown)
            fill(entry, character);
        return entry;
    }

    void fill(Entry& entry, UChar32 character) const
    {
        entry.size = kWhole;
        const auto folded = foldedByIcu(icu::UnicodeString(character), m_fold);
        for (int32_t at = 0; at < folded.length(); at = folded.moveIndex32(at, 1)) {
            if (!composed()->hasBoundaryBefore(folded.char32At(at)))
                return;
        }
        std::string bytes;
        folded.toUTF8String(bytes);
        const bool standsAlone = bytes.empty() || composed()->hasBoundaryBefore(character);
        if (standsAlone && bytes.size() <= entry.bytes.size()) {
            std::copy(bytes.begin(), bytes.end(), entry.bytes.begin());
            entry.size = static_cast<unsigned char>(bytes.size());
        }
    }

    Fold m_fold;
    std::array<std::unique_ptr<Page>, 256> m_pages;
};

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

void lowerAscii(std::string_view text, std::string& result)
{
    result.resize(text.size());
    std::transform(text.begin(), text.end(), result.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
    });
}

void foldInto(std::string_view text, Fold fold, std::string& result)
{
    thread_local FoldTable caseTable(Fold::Case);
    thread_local FoldTable bothTable(Fold::CaseAndDiacritics);
    if (isAscii(text)) {
        lowerAscii(text, result);
    } else if (!(fold == Fold::Case ? caseTable : bothTable).fold(text, result)) {
        result.clear();
        foldedByIcu(fromUtf8(text), fold).toUTF8String(result);
    }
}

} // namespace

std::string foldedText(std::string_view text, Fold fold)
{
    std::string result(text);
    if (fold != Fold::None)
        foldInto(text, fold, result);
    return result;
}

std::string_view foldedView(std::string_view text, Fold fold)
{
    thread_local std::string source;
    thread_local std::string result;
    thread_local Fold sourceFold = Fold::None;
    if (fold == Fold::None)
        return text;
    if (fold != sourceFold || text != source) {
        source = text;
        sourceFold = fold;
        foldInto(text, fold, result);
    }
    return result;
}

std::string foldedByCharacter(std::string_view text)
{
    const auto whole = normalized(composed(), fromUtf8(text));
    icu::UnicodeString folded;
    for (int32_t at = 0; at < whole.length(); at = whole.moveIndex32(at, 1))
        folded.append(u_foldCase(whole.char32At(at), U_FOLD_CASE_DEFAULT));
    std::string result;
    folded.toUTF8String(result);
    return result;
}

} // namespace mosaro::store
