#include "base/PropertyList.h"

#include "FuzzInput.h"

using namespace mosaro;

namespace {

// What has been read can be written, in both forms, and is then read again. Values need not be equal: a list
// may hold numbers that are none, dates beyond the years that can be written, and texts that XML cannot hold.
const fuzz::Target target("PropertyList", [](const QByteArray& bytes) {
    const base::Result<QVariant> value = base::readPropertyList(bytes);
    if (!value)
        return;
    for (const auto format : {base::PropertyListFormat::Xml, base::PropertyListFormat::Binary}) {
        const base::Result<QByteArray> written = base::writePropertyList(value.value(), format);
        if (written)
            fuzz::require(base::readPropertyList(written.value()).ok(), "what was written can be read");
    }
});

} // namespace
