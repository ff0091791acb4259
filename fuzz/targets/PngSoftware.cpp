#include "import/FileHeaders.h"

#include "FuzzInput.h"

using namespace mosaro;

namespace {

const fuzz::Target target("PngSoftware", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const QString software = importing::pngSoftware(file);
    fuzz::require(software == software.trimmed(), "a name begins and ends with a letter");
});

} // namespace
