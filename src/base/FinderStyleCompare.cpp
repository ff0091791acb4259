#include "base/FinderStyleCompare.h"

#include <memory>
#include <string_view>
#include <unicode/ucol.h>

namespace mosaro::base {

namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
using CollatorPointer = std::unique_ptr<UCollator, CloseCollator>;

CollatorPointer makeCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    CollatorPointer collator(ucol_open("root", &status));
    if (U_FAILURE(status))
        return nullptr;
    // Case and width differ on the third level, diacritics on the second.
    ucol_setStrength(collator.get(), UCOL_SECONDARY);
    ucol_setAttribute(collator.get(), UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
    ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
    ucol_setAttribute(collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    return U_SUCCESS(status) ? std::move(collator) : nullptr;
}

/// One per thread; null only where ICU has no data.
const UCollator* collator()
{
    thread_local const CollatorPointer instance = makeCollator();
    return instance.get();
}

} // namespace

int finderStyleCompare(QStringView left, QStringView right)
{
    const UCollator* order = collator();
    if (order == nullptr)
        return left.compare(right, Qt::CaseInsensitive);
    return ucol_strcoll(order, reinterpret_cast<const UChar*>(left.utf16()), int(left.size()),
                        reinterpret_cast<const UChar*>(right.utf16()), int(right.size()));
}

int finderStyleCompareUtf8(const char* left, int leftSize, const char* right, int rightSize)
{
    UErrorCode status = U_ZERO_ERROR;
    if (const UCollator* order = collator(); order != nullptr) {
        const UCollationResult result = ucol_strcollUTF8(order, left, leftSize, right, rightSize, &status);
        if (U_SUCCESS(status))
            return result;
    }
    return std::string_view(left, size_t(leftSize)).compare(std::string_view(right, size_t(rightSize)));
}

} // namespace mosaro::base
