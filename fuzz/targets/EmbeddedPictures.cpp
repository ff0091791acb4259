#include "import/EmbeddedPictures.h"

#include "FuzzInput.h"

using namespace mosaro;
using namespace mosaro::importing;

namespace {

const fuzz::Target target("EmbeddedPictures", [](const QByteArray& bytes) {
    fuzz::InputDevice file(bytes);
    const std::optional<EmbeddedPicture> picture = largestEmbeddedPicture(file);
    if (picture) {
        fuzz::require(picture->offset >= 0 && picture->length > 0 &&
                          picture->length <= bytes.size() - picture->offset,
                      "a picture lies within its file");
        fuzz::require(!picture->size.isEmpty(), "a picture has a size");
        LargestPicture largest;
        largest.offer(bytes.mid(picture->offset, picture->length));
        fuzz::require(largest.bytes().size() == picture->length, "a picture that was found is one alone");
    }
    LargestPicture whole;
    whole.offer(bytes);
});

} // namespace
