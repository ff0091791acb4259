#include "import/IconFile.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("IconFile", [](const QByteArray& bytes) {
    const IcoPictures pictures = readIcoDirectory(bytes);
    fuzz::require(pictures.largest >= 0 && pictures.largest <= std::max(pictures.count - 1, 0),
                  "the largest picture is one of them");
    qsizetype total = 0;
    for (const QByteArray& stream : jpeg2000sOfIcns(bytes))
        total += stream.size();
    fuzz::require(total <= bytes.size(), "the streams of a file are no longer than the file");
    (void)hasOnlySmallPngs(bytes);
});

} // namespace
